#include "show/json_lines.hpp"

#include <algorithm>

#include "base/endpoint.hpp"
#include "base/time.hpp"
#include "framing/block_header.hpp"

namespace ast::recording::astdump {

namespace {

bool has_remainder(const DecodedBlock &decoded) {
    return !decoded.is_cut && (decoded.fault || decoded.block->record_count == 0);
}

class JsonRenderer : public Renderer {
public:
    JsonRenderer(const JsonForm &form, const std::string &file) : form_(form), file_(file) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override;
    void no_block(const Datagram &datagram, uint64_t offset, const std::string &reason, TextBuffer &out) override;

private:
    ast_json_line_t line(const Datagram &datagram, uint64_t offset);
    void remainder(const DecodedBlock &decoded, ast_json_line_t line, TextBuffer &out);
    void data(uint32_t category, Octets octets, const std::string &error, const ast_json_line_t &line, TextBuffer &out);
    template <typename Write>
    void put(size_t octets, TextBuffer &out, Write write);
    template <typename Write>
    void put_implausible(size_t octets, TextBuffer &out, Write write);

    JsonForm form_;
    const std::string &file_;
    TextBuffer time_;
    TextBuffer source_;
    TextBuffer destination_;
    TextBuffer implausible_;
};

const char *terminated(TextBuffer &text) {
    text.put('\0');
    return text.text().data();
}

const char *put_one_time(TextBuffer &out, const Time &time) {
    out.clear();
    put_iso_time(out, time);
    return terminated(out);
}

const char *put_one_endpoint(TextBuffer &out, const Endpoint &endpoint) {
    out.clear();
    put_endpoint(out, endpoint);
    return terminated(out);
}

// Where a datagram has come from, and the place of the octets in a file, which those in a packet do not have.
ast_json_line_t JsonRenderer::line(const Datagram &datagram, uint64_t offset) {
    ast_json_line_t line{};
    line.texts = form_.texts;
    if (form_.name_files) line.file = datagram.file ? datagram.file->c_str() : file_.c_str();
    if (datagram.time) line.time = put_one_time(time_, *datagram.time);
    if (datagram.endpoints) {
        line.source = put_one_endpoint(source_, datagram.endpoints->source);
        line.destination = put_one_endpoint(destination_, datagram.endpoints->destination);
    }
    line.has_offset = datagram.packet == 0;
    line.offset = datagram.offset + offset;
    return line;
}

void JsonRenderer::block(const DecodedBlock &decoded, TextBuffer &out) {
    ast_json_line_t line = this->line(*decoded.datagram, decoded.offset);
    const SplitBlock &block = *decoded.block;
    line.block = decoded.number;
    line.ambiguous = block.profile.ambiguous;
    for (uint64_t i = 0; i < block.record_count; ++i) {
        if (!decoded.shown[i]) continue;
        const ast_datarecord_t &record = block.records[i];
        line.record = i + 1;
        const auto write = [&](char *text, uint64_t capacity) {
            return ast_datarecord_to_json(text, capacity, &record, &line);
        };
        if (ast_datarecord_is_implausible(&record))
            put_implausible(static_cast<size_t>(record.size), out, write);
        else
            put(static_cast<size_t>(record.size), out, write);
    }
    if (form_.remainders && has_remainder(decoded)) remainder(decoded, line, out);
}

// What lies behind the last record that is whole. A block without any octets behind its header has no record either.
void JsonRenderer::remainder(const DecodedBlock &decoded, ast_json_line_t line, TextBuffer &out) {
    const SplitBlock &block = *decoded.block;
    line.record = block.record_count + 1;
    line.ambiguous = false;
    const Octets rest = decoded.octets.subspan(block.records.octets_of(block.record_count));
    data(block.category, rest, rest.empty() ? "a block without records" : decoded.fault->reason, line, out);
}

// The number of a block is left out, for it is that of the next one.
void JsonRenderer::no_block(const Datagram &datagram, uint64_t offset, const std::string &reason, TextBuffer &out) {
    constexpr uint64_t kMostOctets = 32768; // of a line, so that a reader needs no more room than for a block
    if (!form_.remainders) return;
    for (; offset < datagram.octets.size(); offset += kMostOctets) {
        const Octets rest = datagram.octets.subspan(offset);
        const Octets piece = rest.first(std::min<uint64_t>(rest.size(), kMostOctets));
        data(piece[0], piece, reason, line(datagram, offset), out);
    }
}

void JsonRenderer::data(uint32_t category, Octets octets, const std::string &error, const ast_json_line_t &line,
                        TextBuffer &out) {
    put(octets.size(), out, [&](char *text, uint64_t capacity) {
        return ast_octets_to_json(text, capacity, category, octets.data(), octets.size(), error.c_str(), &line);
    });
}

// With as much room as the library is fast with.
template <typename Write>
void JsonRenderer::put(size_t octets, TextBuffer &out, Write write) {
    constexpr size_t kOfLine = 4096;
    constexpr size_t kOfOctet = 256;
    out.put_by(kOfLine + octets * kOfOctet, write);
    out.put('\n');
}

// As the first member, which is not among those that the library writes.
template <typename Write>
void JsonRenderer::put_implausible(size_t octets, TextBuffer &out, Write write) {
    implausible_.clear();
    put(octets, implausible_, write);
    out.put("{\"implausible\":true,");
    out.put(implausible_.text().substr(1));
}

} // namespace

uint64_t json_lines_of(const DecodedBlock &decoded, const JsonForm &form) {
    return decoded.shown.count() + (form.remainders && has_remainder(decoded) ? 1 : 0);
}

std::unique_ptr<Renderer> make_json_renderer(const JsonForm &form, const std::string &file) {
    return std::make_unique<JsonRenderer>(form, file);
}

} // namespace ast::recording::astdump
