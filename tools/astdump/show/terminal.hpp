// What a terminal can do and how large it is; colours, messages, and what is drawn anew as long as it changes.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "system/process.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

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

using system::is_terminal;

// Whether it is a terminal that knows more than lines of text: whose cursor can be moved, and, unless the user wants
// none (NO_COLOR), that shows colours.
bool has_cursor(std::FILE *file);
bool takes_color(std::FILE *file);

// Columns that lines are laid out for, at least 60: what the user says (COLUMNS), those of the terminal, or else 120.
unsigned columns(std::FILE *file);

// Of the terminal itself; nothing where that is not known.
using system::ScreenSize;
std::optional<ScreenSize> screen_size(std::FILE *file);

// Texts of more than `width` characters end in "...".
std::string cut(std::string text, size_t width);

// The columns that a line takes: colours take none.
size_t width_of(std::string_view line);

// Wipes the progress line, if there may be one, so that other text can stand there.
void clear_line();

// Writes "astdump: TEXT" and the end of a line to standard error, behind what stands there for good: progress and what
// a Drawing shows make room. The text may quote whatever has been read.
void tell(std::string_view text, Style style = Style(false));

// Lines on a terminal that others take the place of as long as they change. There is one drawing at a time.
class Drawing {
public:
    explicit Drawing(Output &out) : out_(out) {}
    ~Drawing() { leave(); }
    Drawing(const Drawing &) = delete;
    Drawing &operator=(const Drawing &) = delete;

    // Shows lines in place of those before. They are fewer than the rows of the screen.
    void draw(std::string lines);

    // What is shown stays where it is.
    void leave();

private:
    friend void tell(std::string_view text, Style style);
    size_t rows() const;
    std::string to_first_line() const;
    void erase();
    void put();

    Output &out_;
    std::string lines_;
};

// How far the reading of a file has got, how fast, and how long it is likely to take, on standard error, from a second
// after the start on. Silent unless standard error is a terminal and `enabled`.
class Progress {
public:
    explicit Progress(bool enabled);
    bool is_due() const { return enabled_ && Clock::now() >= next_; }
    void show(const std::string &file, uint64_t consumed, std::optional<uint64_t> size, uint64_t blocks,
              const std::string &more);

private:
    using Clock = std::chrono::steady_clock;

    std::string pace(const std::string &file, uint64_t consumed, std::optional<uint64_t> size);

    bool enabled_;
    Clock::time_point next_;
    std::string file_; // that is read, from `begin_` on
    Clock::time_point begin_;
};

} // namespace ast::recording::astdump
