#pragma once

#include <QGenericPlugin>

namespace orbkl4::test {

/// Drives the program from inside, as it has no command line: takes commands from standard input,
/// answers on standard output, and only does what a user could do at that moment. It ends the
/// program when its input ends. QT_QPA_GENERIC_PLUGINS=driver loads it.
class DriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver_plugin.json")

  public:
    QObject* create(const QString& key, const QString& spec) override;
};

}  // namespace orbkl4::test
