#include "show/write_file.hpp"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "base/counted.hpp"
#include "framing/block_header.hpp"
#include "show/terminal.hpp"
#include "write/packets.hpp"

namespace ast::recording::astdump {

namespace {

struct Extension {
    std::string_view name;
    FileKind kind;
};

constexpr Extension kExtensions[] = {
    {".pcap", FileKind::pcap},  {".ast", FileKind::blocks}, {".bin", FileKind::blocks},
    {".raw", FileKind::blocks}, {".json", FileKind::json},  {".jsonl", FileKind::json},
};

std::string_view as_characters(Octets octets) { return {reinterpret_cast<const char *>(octets.data()), octets.size()}; }

// A block with the records that are asked for. What is damaged stays as it is where nothing is chosen.
class ChosenBlock {
public:
    explicit ChosenBlock(bool remainders) : remainders_(remainders) {}

    // Good until the next call.
    Octets of(const DecodedBlock &decoded) {
        const SplitBlock &block = *decoded.block;
        const bool is_whole = remainders_ || (!decoded.fault && decoded.shown.count() == block.record_count);
        if (is_whole) return decoded.octets;
        octets_.assign(kBlockHeaderOctets, static_cast<uint8_t>(block.category));
        for (uint64_t i = 0; i < block.record_count; ++i) {
            const ast_datarecord_t &record = block.records[i];
            if (decoded.shown[i]) octets_.insert(octets_.end(), record.data, record.data + record.size);
        }
        set_block_length(octets_);
        return octets_;
    }

private:
    bool remainders_;
    std::vector<uint8_t> octets_;
};

class BlockRenderer : public Renderer {
public:
    explicit BlockRenderer(bool remainders) : chosen_(remainders) {}
    void block(const DecodedBlock &decoded, TextBuffer &out) override { out.put(as_characters(chosen_.of(decoded))); }

private:
    ChosenBlock chosen_;
};

// Blocks that came in one datagram leave in one.
class PacketRenderer : public Renderer {
public:
    explicit PacketRenderer(bool remainders) : chosen_(remainders) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        const Octets octets = chosen_.of(decoded);
        const Datagram &datagram = *decoded.datagram;
        const bool fits = payload_.size() + octets.size() + datagram.trailer.size() <= kMaxPayloadOctets;
        if (!datagram.is_same_as(packet_) || !fits) end(out);
        packet_ = datagram;
        payload_.insert(payload_.end(), octets.begin(), octets.end());
    }

    // What a recorder has put behind the last block stays where all in front of it does.
    void end(TextBuffer &out) override {
        if (!packet_.trailer.empty() && std::ranges::equal(payload_, packet_.octets))
            payload_.insert(payload_.end(), packet_.trailer.begin(), packet_.trailer.end());
        if (!payload_.empty()) put_packet(out, packet_, payload_);
        payload_.clear();
        packet_ = {};
    }

private:
    ChosenBlock chosen_;
    Datagram packet_;
    std::vector<uint8_t> payload_;
};

} // namespace

FileKind file_kind(const std::string &path) {
    const auto found =
        std::ranges::find_if(kExtensions, [&](const Extension &extension) { return path.ends_with(extension.name); });
    if (found != std::end(kExtensions)) return found->kind;
    throw std::invalid_argument("--write: '" + path +
                                "' ends in none of .pcap (a capture), .ast, .bin, .raw (blocks), .json, .jsonl");
}

void tell_part(OutputFile &file) {
    const std::string octets = counted(file.written(), "octet");
    const std::string part = file.keep_part();
    if (part.empty())
        tell(file.path() + ": interrupted after " + octets);
    else
        tell(file.path() + ": interrupted and left as it was; " + octets + " of what was to be written are in " + part);
}

WriteFile::WriteFile(const std::string &path, const std::vector<std::string> &inputs, const JsonForm &form)
    : kind_(file_kind(path)), form_(form), file_(path, inputs) {
    if (kind_ == FileKind::pcap) file_.write(pcap_header());
}

std::unique_ptr<Renderer> WriteFile::renderer() const {
    if (kind_ == FileKind::json) return make_json_renderer(form_, input_);
    if (kind_ == FileKind::pcap) return std::make_unique<PacketRenderer>(form_.remainders);
    return std::make_unique<BlockRenderer>(form_.remainders);
}

} // namespace ast::recording::astdump
