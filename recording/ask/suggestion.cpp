#include "ask/suggestion.hpp"

#include <stdexcept>

#include "ask/field_path.hpp"
#include "ask/published_fields.hpp"
#include "ask/quantities.hpp"
#include "base/letters.hpp"
#include "base/nearest.hpp"

namespace ast::recording {

namespace {

// The value that a path leads to without what stands behind it: "I145" of "I145/FL".
std::string value_above(std::string_view path) {
    for (size_t slash = path.rfind('/'); slash != std::string_view::npos && slash != 0;
         slash = path.rfind('/', slash - 1)) {
        const std::string_view above = path.substr(0, slash);
        try {
            const auto found = FieldPath::read(above);
            if (found && !found->fields().empty())
                return "; did you mean " + std::string(above) + "? It is a value of its own, without " +
                       std::string(path.substr(slash));
        } catch (const std::invalid_argument &) { // no field either
        }
    }
    return {};
}

// A path of the library, "I048/070/MODE3A", in the form of what was written: "I070/MODE3A", "048/I070/MODE3A".
std::string in_form_of(std::string_view written, std::string_view path) {
    constexpr size_t kLetter = 1;
    constexpr size_t kCategory = 5;
    const std::string_view item = path.substr(kCategory);
    const std::string number = std::string(is_digit(item.front()) ? "I" : "") + std::string(item);
    if (is_digit(written.front())) return std::string(path.substr(kLetter, kCategory - kLetter)) + number;
    const bool has_category =
        written.size() > kCategory && written[kCategory - 1] == '/' && is_digit(written[kCategory]);
    return has_category ? std::string(path) : number;
}

// Of those that begin with some text.
std::string nearest_path(std::string_view written, std::string_view begin) {
    Nearest nearest(written);
    for (const PublishedField &each : published_fields()) {
        const std::string path = in_form_of(written, each.path);
        if (has_value(each.field) && is_same_word(std::string_view(path).substr(0, begin.size()), begin))
            nearest.offer(path);
    }
    return nearest.found();
}

std::string nearest_quantity(std::string_view written) {
    Nearest nearest(written);
    for (const std::string_view name : known_names()) nearest.offer(name);
    if (!nearest.found().empty()) return nearest.found();
    constexpr size_t kFewestLetters = 3;
    if (written.size() < kFewestLetters) return {};
    for (const Quantity &each : kQuantities)
        if (is_like(each.title, '*' + std::string(written) + '*')) return std::string(each.name);
    return {};
}

} // namespace

std::string suggestion(std::string_view name) {
    std::string nearest;
    if (FieldPath::has_form(name)) {
        nearest = nearest_path(name, name.substr(0, name.rfind('/') + 1)); // beside it
        if (std::string above = value_above(name); nearest.empty() && !above.empty()) return above;
        if (nearest.empty()) nearest = nearest_path(name, "");
    } else {
        nearest = nearest_quantity(name);
    }
    return nearest.empty() ? nearest : "; did you mean " + nearest + '?';
}

} // namespace ast::recording
