#include "json.hpp"

#include <cstdarg>
#include <cstdio>
#include <stdexcept>

namespace simulation {

namespace {

constexpr size_t kMostMemberChars = 512;
constexpr size_t kMostRecordOctets = 1024;

} // namespace

void Json::add(const char *format, ...) {
    char text[kMostMemberChars];
    va_list values;
    va_start(values, format);
    const int chars = std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    if (chars < 0 || static_cast<size_t>(chars) >= sizeof text) throw std::logic_error("a member is too long");
    separate();
    members_ += text;
}

void Json::add_object(const char *name, const Json &members) {
    separate();
    members_ += '"';
    members_ += name;
    members_ += "\":" + members.text();
}

void Json::separate() {
    if (!members_.empty()) members_ += ',';
}

Octets encode(const Json &record) {
    const std::string text = record.text();
    Octets octets(kMostRecordOctets);
    const ast_json_result_t result = ast_datarecord_from_json(octets.data(), octets.size(), text.data(), text.size());
    if (!result.valid)
        throw std::logic_error(std::string(result.path) + " " + (result.error ? result.error : "does not fit"));
    octets.resize(static_cast<size_t>(result.size));
    return octets;
}

} // namespace simulation
