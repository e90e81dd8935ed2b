#include "listing.hpp"

#include <algorithm>
#include <cinttypes>
#include <ctime>

namespace astdump {

namespace {

// "    I048/010  Data Source Identifier                          2  19 0c"
constexpr int kIndent = 4;
constexpr int kTypeWidth = 8;
constexpr int kSizeWidth = 5;
constexpr int kGap = 2;
constexpr int kNameWidth = 36;
constexpr int kWideNameWidth = 48;
constexpr unsigned kWideColumns = 110; // from which on names get more room
constexpr unsigned kHexWidth = 3;      // of one octet and the blank behind it
constexpr unsigned kMinOctetsPerLine = 4;
constexpr unsigned kMaxOctetsPerLine = 32;

std::string time_text(const Time &time) {
    const std::time_t seconds = time.seconds;
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[32];
    const size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc);
    char fraction[16];
    if (time.nanoseconds % 1000 == 0)
        std::snprintf(fraction, sizeof fraction, ".%06u", time.nanoseconds / 1000);
    else
        std::snprintf(fraction, sizeof fraction, ".%09u", time.nanoseconds);
    return std::string(text, length) + fraction;
}

std::string endpoint_text(const Endpoint &endpoint) {
    const bool ipv6 = endpoint.address.find(':') != std::string::npos;
    const std::string address = ipv6 ? '[' + endpoint.address + ']' : endpoint.address;
    return address + ':' + std::to_string(endpoint.port);
}

// Names of more than the column's width end in "...".
std::string cut(std::string name, size_t width) {
    if (name.size() > width) name.replace(width - 3, std::string::npos, "...");
    return name;
}

const char *plural(uint64_t count) { return count == 1 ? "" : "s"; }

unsigned octets_that_fit(unsigned columns) {
    return std::clamp((columns + 1) / kHexWidth, kMinOctetsPerLine, kMaxOctetsPerLine);
}

} // namespace

Listing::Listing(std::FILE *out, bool color, unsigned width, bool name_files)
    : out_(out),
      style_(color),
      name_width_(width < kWideColumns ? kNameWidth : kWideNameWidth),
      hex_column_(kIndent + kTypeWidth + kGap + name_width_ + kSizeWidth + kGap),
      octets_per_line_(octets_that_fit(width - static_cast<unsigned>(hex_column_))),
      name_files_(name_files) {}

void Listing::file(const std::string &name) {
    if (name_files_) std::fprintf(out_, "%s==> %s <==%s\n\n", style_.on(Color::heading), name.c_str(), style_.off());
}

void Listing::block(const DecodedBlock &decoded) {
    const ast_datablock_t &block = *decoded.block;
    block_line(decoded);
    for (uint64_t i = 0; i < block.record_count; ++i)
        if (decoded.shown[i]) record(block.records[i], i + 1, block.uap);
    if (decoded.fault) fault(decoded);
    std::fputc('\n', out_);
}

void Listing::block_line(const DecodedBlock &decoded) {
    const Datagram &datagram = *decoded.datagram;
    const ast_datablock_t &block = *decoded.block;
    std::fprintf(out_, "%s#%" PRIu64, style_.on(Color::heading), decoded.number);
    if (datagram.time) std::fprintf(out_, "  %s", time_text(*datagram.time).c_str());
    if (datagram.endpoints)
        std::fprintf(out_, "  %s > %s", endpoint_text(datagram.endpoints->source).c_str(),
                     endpoint_text(datagram.endpoints->destination).c_str());
    std::fprintf(out_, "  CAT %03u%s  %zu octets  %.*s  %" PRIu64 " record%s  %s%s%s\n", block.category, style_.off(),
                 decoded.octets.size(), static_cast<int>(decoded.profile.size()), decoded.profile.data(),
                 block.record_count, plural(block.record_count), style_.on(block.valid ? Color::good : Color::fault),
                 block.valid ? "valid" : "DAMAGED", style_.off());
}

// Says by which profile a record was decoded when that is not the block's: plots and tracks in one block.
void Listing::record(const ast_datarecord_t &record, uint64_t number, const ast_uap_t &block_uap) {
    std::fprintf(out_, "  record %" PRIu64 "  %" PRIu64 " octets", number, record.size);
    if (record.uap.get_dataitem != block_uap.get_dataitem) {
        const std::string_view profile = profile_name(record.uap, record.category);
        std::fprintf(out_, "  %.*s", static_cast<int>(profile.size()), profile.data());
    }
    std::fputc('\n', out_);
    items(record);
}

void Listing::items(const ast_datarecord_t &record) {
    for (uint64_t i = 0; i < record.item_count; ++i) item(record.items[i]);
}

void Listing::item(const ast_dataitem_t &item) {
    std::fprintf(out_, "%*s%s%-*s%s%*s%-*s%*" PRIu64 "%*s", kIndent, "", style_.on(Color::item), kTypeWidth,
                 ast_dataitem_type_to_str(item.type), style_.off(), kGap, "", name_width_,
                 cut(ast_dataitem_get_name(item.type), static_cast<size_t>(name_width_)).c_str(), kSizeWidth, item.size,
                 kGap, "");
    octets(item);
}

void Listing::octets(const ast_dataitem_t &item) {
    hex_.resize(item.size * kHexWidth);
    ast_dataitem_get_hex_str(hex_.data(), hex_.size(), &item);
    hex_.back() = ' '; // the terminator, so that every octet ends in a blank
    const size_t line_length = size_t{octets_per_line_} * kHexWidth;
    for (size_t at = 0; at < hex_.size(); at += line_length) {
        const size_t length = std::min(line_length, hex_.size() - at) - 1;
        const int indent = at == 0 ? 0 : hex_column_;
        std::fprintf(out_, "%*s%s%.*s%s\n", indent, "", style_.on(Color::dim), static_cast<int>(length), &hex_[at],
                     style_.off());
    }
}

void Listing::fault(const DecodedBlock &decoded) {
    const Fault &fault = *decoded.fault;
    std::fprintf(out_, "  record %" PRIu64 "\n", decoded.block->record_count + 1);
    if (!fault.record.valid) items(fault.record);
    std::fprintf(out_, "    %sdamaged at octet %" PRIu64 ": %s%s\n", style_.on(Color::fault), fault.octets,
                 fault_reason(fault, decoded.octets).c_str(), style_.off());
}

} // namespace astdump
