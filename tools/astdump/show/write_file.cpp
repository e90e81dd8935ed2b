#include "show/write_file.hpp"

#include <stdexcept>

#include "base/counted.hpp"
#include "show/chosen_datagrams.hpp"
#include "show/terminal.hpp"
#include "write/packets.hpp"

namespace ast::recording::astdump {

namespace {

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
    if (const auto kind = kind_of_name(path)) return *kind;
    throw std::invalid_argument(
        "--write: '" + path +
        "' ends in none of .pcap (a capture), .ast, .bin, .raw (blocks), .json, .jsonl, .parquet, .arrow, "
        ".csv (a table)");
}

void tell_part(OutputFile &file) {
    const std::string octets = counted(file.written(), "octet");
    const std::string part = file.keep_part();
    if (part.empty())
        tell(file.path() + ": interrupted after " + octets);
    else
        tell(file.path() + ": interrupted and left as it was; " + octets + " of what was to be written are in " + part);
}

std::unique_ptr<Renderer> make_file_renderer(FileKind kind, const JsonForm &form, const std::string &input) {
    if (kind == FileKind::json) return make_json_renderer(form, input);
    if (kind == FileKind::pcap) return std::make_unique<PacketRenderer>(form.remainders);
    return std::make_unique<BlockRenderer>(form.remainders);
}

std::string file_header(FileKind kind) { return kind == FileKind::pcap ? pcap_header() : std::string(); }

WriteFile::WriteFile(const std::string &path, const std::vector<std::string> &inputs, const JsonForm &form)
    : kind_(file_kind(path)), form_(form), file_(path, inputs) {
    file_.write(file_header(kind_));
}

std::unique_ptr<Renderer> WriteFile::renderer() const { return make_file_renderer(kind_, form_, input_); }

} // namespace ast::recording::astdump
