// JSON as the page reads it.
#pragma once

#include <concepts>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::viewer {

class JsonWriter {
public:
    explicit JsonWriter(recording::TextBuffer &out) : out_(out) {}

    void begin(char bracket) {
        separate();
        out_.put(bracket);
        is_first_ = true;
    }
    void end(char bracket) {
        out_.put(bracket);
        is_first_ = false;
    }

    // A value follows.
    JsonWriter &key(std::string_view name) {
        separate();
        out_.put('"');
        out_.put(name);
        out_.put("\":");
        is_first_ = true;
        return *this;
    }

    void text(std::string_view text);
    void hex(recording::Octets octets);
    void number(uint64_t number) {
        separate();
        out_.number(number);
    }
    void number(double number);
    void flag(bool flag) { word(flag ? "true" : "false"); }

    // What is JSON as it stands.
    void word(std::string_view word) {
        separate();
        out_.put(word);
    }

    template <typename Write>
    void object(Write write) {
        begin('{');
        write();
        end('}');
    }
    template <typename Write>
    void list(Write write) {
        begin('[');
        write();
        end(']');
    }

    void member(std::string_view name, std::string_view value) { key(name).text(value); }
    void member(std::string_view name, const char *value) { key(name).text(value); }
    template <std::unsigned_integral Number>
    void member(std::string_view name, Number value) {
        key(name).number(static_cast<uint64_t>(value));
    }
    void member(std::string_view name, double value) { key(name).number(value); }
    void member(std::string_view name, bool value) { key(name).flag(value); }

    // The same where there is something to be said.
    void optional_member(std::string_view name, std::string_view value) {
        if (!value.empty()) member(name, value);
    }

private:
    void separate() {
        if (!is_first_) out_.put(',');
        is_first_ = false;
    }

    recording::TextBuffer &out_;
    bool is_first_ = true;
};

} // namespace ast::viewer
