#pragma once

#include <QGenericPlugin>

namespace orbkl4::test {

/// Makes the hand inside the program, which has no command line: it takes orders over standard
/// input and answers there, and only does what a person at the screen could do just then. It ends
/// the program when whoever gives the orders is gone. QT_QPA_GENERIC_PLUGINS=hand loads it.
class DriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver_plugin.json")

  public:
    QObject* create(const QString& key, const QString& spec) override;
};

}  // namespace orbkl4::test
