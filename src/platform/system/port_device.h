#pragma once

#include <QString>

namespace orbkl4 {

/// Serial port numbers run from 1 to this.
inline constexpr int lastPortNumber = 16;

/// What a port number or a path names on this machine.
struct PortDevice {
    QString name;            ///< path of the device, links resolved; empty if none is named
    bool present = false;    ///< it is a terminal
    bool permitted = false;  ///< this user may read and write it
    QString group;           ///< if not permitted: the group that has the right, empty for none
};

/// The system's description of the adapter of `device`, empty if it has none. Slow, as it goes
/// through all devices.
QString AdapterOf(const PortDevice& device);

/// The text that this user lacks permission for `device`, and which group would give it.
QString PermissionHint(const PortDevice& device);

/// The device at the path `name`. Anything but a terminal, such as a plain file, counts as absent.
/// Never blocks, and doesn't open the device if the system has a device tree.
PortDevice DeviceAt(const QString& name);

/// The device that `number` (1 to 16) names: the user's link in the ports folder, else the fixed
/// table; none for any other number.
PortDevice DeviceOfPort(int number);

}  // namespace orbkl4
