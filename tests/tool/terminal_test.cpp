// What a terminal is given: colours, widths, and nothing that an input could have put there.

#include <gtest/gtest.h>

#include "pseudo_terminal.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

// A track of category 062 with the callsign ESC [31mAB of its flight plan.
const std::string kRed = hex("3E 0010 810102 190C 40 1B5B33316D4142");

TEST(Terminal, HasColoursUnlessItOrTheUserWantsNone) {
    const struct {
        const char *environment;
        const char *arguments;
        bool coloured;
    } cases[] = {
        {"TERM=xterm", "a", true},
        {"NO_COLOR= TERM=xterm", "a", true},
        {"NO_COLOR=1 TERM=xterm", "a", false},
        {"NO_COLOR=1 TERM=dumb", "--color always a", true},
        {"TERM=dumb", "a", false},
        {"TERM=xterm", "--color never a", false},
    };
    for (const auto &test : cases) {
        Command command;
        command.write("a", kSector);
        PseudoTerminal terminal(command, std::string(test.arguments) + " 2>/dev/null", 80, 24, test.environment);
        EXPECT_EQ(terminal.wait(), 0);
        EXPECT_NE(terminal.screen().find("CAT 034"), std::string::npos) << test.environment;
        EXPECT_EQ(terminal.written().find('\033') != std::string::npos, test.coloured) << test.environment;
    }
}

TEST(Terminal, IsShownDetailsByAPager) {
    const struct {
        const char *arguments;
        const char *pager;
        bool is_paged;
    } cases[] = {
        {"--detail a", "PAGER='sed s/^/page:/'", true},
        {"--detail --no-pager a", "PAGER='sed s/^/page:/'", false},
        {"--list a", "PAGER='sed s/^/page:/'", false},
        {"--list --pager a", "PAGER='sed s/^/page:/'", true},
        {"--detail --pager a | cat", "PAGER='sed s/^/page:/'", false},
        {"--detail a", "PAGER=", false},
        {"--detail a", "", false}, // less ends where it all fits the screen
    };
    for (const auto &test : cases) {
        Command command;
        command.write("a", kSector + kSector.substr(0, 5));
        PseudoTerminal terminal(command, test.arguments, 120, 60, std::string("TERM=xterm ") + test.pager);
        terminal.wait();
        const std::string &screen = terminal.written();
        EXPECT_NE(screen.find("034"), std::string::npos) << screen;
        EXPECT_NE(screen.find("5 octets"), std::string::npos) << "reports go the same way\n" << screen;
        EXPECT_EQ(screen.find("page:") != std::string::npos, test.is_paged) << test.arguments << '\n' << screen;
        EXPECT_EQ(screen.find("page:\033[1;31mastdump") != std::string::npos, test.is_paged) << test.arguments << '\n'
                                                                                             << screen;
    }
}

// Nobody's name, and no text of an item, acts on the terminal.
TEST(Terminal, GetsNoControlCharactersFromInput) {
    const std::string name = "r\xC3\xB6"
                             "d\033[31m\xC2\x9B\xFF\xE2\x80\xAE";
    Command command;
    command.write(name, kRed + kSector.substr(1));
    for (const char *mode : {"", "--detail", "--list", "--stats", "--csv", "--json", "--html page", "--frob"}) {
        SCOPED_TRACE(mode);
        const Result result = command.run(std::string(mode) + " r* r* nowhere$(printf '\\033')");
        EXPECT_EQ(result.status, 2);
        for (const std::string &text : {result.out, result.err}) {
            EXPECT_EQ(text.find_first_of("\033\r\b"), std::string::npos) << text;
            EXPECT_EQ(text.find("\xC2\x9B"), std::string::npos) << text;
        }
    }
    EXPECT_NE(command.run("--csv I390/CS r*").out.find(",?[31mAB\n"), std::string::npos);
    EXPECT_NE(command.run("--stats r*")
                  .out.find("  r\xC3\xB6"
                            "d.[31m...\n"),
              std::string::npos);
}

} // namespace
