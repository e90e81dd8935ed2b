// What the library reports while a test runs.
#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "ast.h"

namespace ast_test {

struct LogLine {
    uint32_t level;
    std::string message;
    bool operator==(const LogLine &) const = default;
    friend std::ostream &operator<<(std::ostream &out, const LogLine &line) {
        return out << '{' << line.level << ", \"" << line.message << "\"}";
    }
};

using LogLines = std::vector<LogLine>;

// Collects log lines as long as it lives; then the sink is the one at start again. One at a time.
class LogCapture {
public:
    LogCapture() {
        collected().clear();
        ast_log_handler_reg([](uint32_t level, const char *message) {
            collected().push_back({level, message});
            return 0;
        });
    }
    ~LogCapture() { ast_log_handler_reg(ast_log_stdout); }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    // The lines since the last time.
    LogLines take() { return std::exchange(collected(), {}); }

private:
    static LogLines &collected() {
        static LogLines lines;
        return lines;
    }
};

} // namespace ast_test
