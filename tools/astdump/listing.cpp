#include "listing.hpp"

#include <algorithm>
#include <cinttypes>

#include "text.hpp"

namespace astdump {

namespace {

// "    I048/010  Data Source Identifier        2  SAC:025 SIC:012       19 0c"
constexpr int kIndent = 4;
constexpr int kTypeWidth = 8;
constexpr int kSizeWidth = 5;
constexpr int kGap = 2;
constexpr int kFixedWidth = kIndent + kTypeWidth + kGap + kSizeWidth + kGap + kGap;
constexpr int kMaxNameWidth = 50;
constexpr int kHexWidth = 3; // of one octet and the blank behind it
constexpr int kMinOctetsPerLine = 4;
constexpr int kMaxOctetsPerLine = 32;

// What type and size leave of a line goes to the name, the summary and the octets, as 4 to 3 to 3.
constexpr int kShareOfTen = 3;

int share(unsigned columns) { return (static_cast<int>(columns) - kFixedWidth) * kShareOfTen / 10; }

} // namespace

Listing::Listing(std::FILE *out, const Form &form)
    : out_(out),
      style_(form.color),
      name_files_(form.name_files),
      octets_per_line_(std::clamp((share(form.columns) + 1) / kHexWidth, kMinOctetsPerLine, kMaxOctetsPerLine)),
      summary_width_(share(form.columns)),
      name_width_(std::min(static_cast<int>(form.columns) - kFixedWidth - 2 * share(form.columns), kMaxNameWidth)),
      summary_column_(kIndent + kTypeWidth + kGap + name_width_ + kSizeWidth + kGap),
      hex_column_(summary_column_ + summary_width_ + kGap) {
    if (form.detail) detail_.emplace(out_, style_);
}

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
    std::fprintf(out_, "  CAT %03u%s  %zu octets  %.*s  %s  %s%s%s\n", block.category, style_.off(),
                 decoded.octets.size(), static_cast<int>(decoded.profile.size()), decoded.profile.data(),
                 counted(block.record_count, "record").c_str(), style_.on(block.valid ? Color::good : Color::fault),
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

// A summary that leaves no room for the octets pushes them to the next line.
void Listing::item(const ast_dataitem_t &item) {
    const std::string summary = views_.summary(item);
    std::fprintf(out_, "%*s%s%-*s%s%*s%-*s%*" PRIu64 "%*s%s", kIndent, "", style_.on(Color::item), kTypeWidth,
                 ast_dataitem_type_to_str(item.type), style_.off(), kGap, "", name_width_,
                 cut(ast_dataitem_get_name(item.type), static_cast<size_t>(name_width_)).c_str(), kSizeWidth, item.size,
                 kGap, "", summary.c_str());
    const int room = summary_width_ - static_cast<int>(summary.size());
    if (room < 0) std::fputc('\n', out_);
    octets(item, room < 0 ? hex_column_ : room + kGap);
    if (detail_) detail_->item(item);
}

// Starts the first line with `indent` blanks.
void Listing::octets(const ast_dataitem_t &item, int indent) {
    hex_.resize(item.size * kHexWidth);
    ast_dataitem_get_hex_str(hex_.data(), hex_.size(), &item);
    hex_.back() = ' '; // the terminator, so that every octet ends in a blank
    const size_t line_length = static_cast<size_t>(octets_per_line_) * kHexWidth;
    for (size_t at = 0; at < hex_.size(); at += line_length) {
        const size_t length = std::min(line_length, hex_.size() - at) - 1;
        std::fprintf(out_, "%*s%s%.*s%s\n", at == 0 ? indent : hex_column_, "", style_.on(Color::dim),
                     static_cast<int>(length), &hex_[at], style_.off());
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
