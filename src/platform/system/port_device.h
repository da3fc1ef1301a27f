#pragma once

#include <QString>

namespace orbkl4 {

/// Serial port numbers run from 1 to this.
inline constexpr int lastPortNumber = 16;

/// What a port number or a path names on this machine.
struct PortDevice {
    QString name;  ///< the device's own path or name, links resolved; empty where none is named
    bool present = false;    ///< a terminal device is there
    bool permitted = false;  ///< this user may read and write it
    QString group;           ///< the group whose members may, where this user may not; empty: none
};

/// What the system calls the adapter of `device`, empty where it has no name for it; looks through
/// all devices there are, which takes its time.
QString AdapterOf(const PortDevice& device);

/// Says that this user lacks permission for `device`, and which group would give it.
QString PermissionHint(const PortDevice& device);

/// The device at the path `name`; what is no terminal, such as a plain file, counts as absent. It
/// isn't opened where the system tells without that, and never waited for.
PortDevice DeviceAt(const QString& name);

/// The device that `number` (1 to 16) names: the user's link in the ports folder, else the fixed
/// table; nothing for any other number.
PortDevice DeviceOfPort(int number);

}  // namespace orbkl4
