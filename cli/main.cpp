#include "cli/commands/command_line.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    // Port objects want an application, though nothing runs its event loop.
    const QCoreApplication application(argc, argv);
    return orbkl4::cli::RunCommandLine(argc, argv);
}
