#include "show/write_file.hpp"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "base/counted.hpp"
#include "show/chosen_datagrams.hpp"
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

class BlockRenderer : public Renderer {
public:
    explicit BlockRenderer(bool remainders) : chosen_(remainders) {}
    void block(const DecodedBlock &decoded, TextBuffer &out) override { out.put(as_characters(chosen_.of(decoded))); }

private:
    ChosenBlock chosen_;
};

class PacketRenderer : public DatagramRenderer {
public:
    explicit PacketRenderer(bool remainders) : DatagramRenderer(remainders, Behind::trailers) {}

private:
    void put(TextBuffer &out, const Datagram &datagram, Octets payload) override { put_packet(out, datagram, payload); }
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
