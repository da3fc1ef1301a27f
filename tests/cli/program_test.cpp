#include "cli/cli_test.h"

namespace orbkl4::cli::test {
namespace {

class Program : public CliTest {};

TEST_F(Program, ShowsItsVersionAndHelp) {
    EXPECT_EQ("2.0.4\n", Run({"--version"}).out);
    EXPECT_EQ("2.0.4\n", Run({"info", "--version"}).out);
    for (const Words& words : std::vector<Words>{{"--help"}, {"info", "--help"}, {"ports", "-h"}}) {
        const Outcome help = Run(words);
        EXPECT_EQ(0, help.exit);
        EXPECT_NE(std::string::npos, help.out.find("Usage: orb-kl4"));
        EXPECT_EQ("", help.err);
    }
}

TEST_F(Program, LinksNoWindows) {
    const std::string libraries = Shell("ldd \"$1\"");
    EXPECT_NE(std::string::npos, libraries.find("libQt6Core"));
    for (const char* library : {"libQt6Gui", "libQt6Widgets"})
        EXPECT_EQ(std::string::npos, libraries.find(library)) << library;
}

TEST_F(Program, ColoursOnlyWhereWanted) {
    const std::string escape = "\x1b[";
    const auto coloured = [&](const Environment& environment) {
        return Run({"ports"}, environment).out.find(escape) != std::string::npos;
    };
    EXPECT_FALSE(coloured({}));
    EXPECT_FALSE(coloured({{"CLICOLOR_FORCE", "0"}}));
    EXPECT_TRUE(coloured({{"CLICOLOR_FORCE", "1"}}));
    EXPECT_FALSE(coloured({{"CLICOLOR_FORCE", "1"}, {"NO_COLOR", "1"}}));
    for (const auto& [terminal, expected] :
         std::map<std::string, bool>{{"dumb", false}, {"xterm", true}}) {
        const std::string out = Shell("TERM=" + terminal + " script -qec \"$1 ports\" /dev/null");
        EXPECT_EQ(expected, out.find(escape) != std::string::npos) << terminal << out;
    }
}

TEST_F(Program, CompletesItsOwnOptions) {
    const std::string complete =
        "source <(\"$1\" completion bash); "
        "of() { COMP_WORDS=(orb-kl4 \"$@\"); COMP_CWORD=$#; _orb_kl4; echo \"${COMPREPLY[@]}\"; "
        "}; ";
    EXPECT_EQ("info\n", Shell(complete + "of in"));
    EXPECT_EQ("--probe\n", Shell(complete + "of --json ports --pr"));
    EXPECT_EQ("", Shell(complete + "of info --pr | xargs -r echo"));
    EXPECT_EQ("38400 115200 19200\n", Shell(complete + "of info --baud \"\""));
}

TEST_F(Program, EndsWithFiveWhereItsOutputCannotBeWritten) {
    EXPECT_EQ("5\n", Shell("\"$1\" ports 2>/dev/null >/dev/full; echo $?"));
    EXPECT_EQ("orb-kl4: standard output can't be written: No space left on device\n",
              Shell("\"$1\" ports >/dev/full"));
}

}  // namespace
}  // namespace orbkl4::cli::test
