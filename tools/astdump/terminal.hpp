// Colours, the width of the terminal, and progress on it.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

namespace astdump {

enum class Color { heading, item, dim, good, fault };

// Escape sequences, or empty texts where there is no colour.
class Style {
public:
    explicit Style(bool enabled) : enabled_(enabled) {}
    const char *on(Color color) const;
    const char *off() const;

private:
    bool enabled_;
};

bool is_terminal(std::FILE *file);

// Wipes the progress line, if standard error is a terminal, so that other text can stand there.
void clear_line();

// Columns of a terminal, at least 60; 120 for anything else.
unsigned columns(std::FILE *file);

// How far the reading of a file has got, on standard error, from a second after the start on. Silent unless standard
// error is a terminal and `enabled`.
class Progress {
public:
    explicit Progress(bool enabled);
    void update(const std::string &file, uint64_t consumed, std::optional<uint64_t> size, uint64_t blocks);

private:
    using Clock = std::chrono::steady_clock;

    bool enabled_;
    Clock::time_point next_;
};

} // namespace astdump
