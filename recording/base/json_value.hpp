// JSON that users hand in, such as areas: read whole.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ast::recording {

struct JsonValue {
    enum class Kind { null, boolean, number, text, list, object };

    Kind kind = Kind::null;
    bool boolean = false;
    double number = 0;
    std::string text;
    std::vector<JsonValue> elements; // of a list, and the values of the members of an object
    std::vector<std::string> names;  // of these members

    // The first member of that name; null where there is none, also of what is no object.
    const JsonValue *find(std::string_view name) const;

    // "a number", "an object".
    const char *kind_text() const;
};

// Throws std::invalid_argument, "line 3, character 5: expected a value", also for what is nested deeper than 64 levels.
JsonValue read_json(std::string_view text);

} // namespace ast::recording
