#pragma once

#include <QString>
#include <QtGlobal>

namespace orbkl4::test {

/// Drops what Qt's offscreen plugin prints about things that it can't do; all else is printed as
/// before.
inline void SilenceOffscreenPlugin() {
    static QtMessageHandler former = nullptr;
    former = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            if (!text.startsWith(QLatin1String("This plugin does not support"))) {
                former(type, context, text);
            }
        });
}

}  // namespace orbkl4::test
