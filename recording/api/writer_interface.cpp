// The exported functions that write files. None lets an exception out.

#include "api/opening.hpp"
#include "datagram/report.hpp"
#include "write/file_kind.hpp"
#include "write/output_file.hpp"
#include "write/packets.hpp"

struct ast_writer {
    ast_writer(const char *path, bool is_capture_file) : file(path, {}), is_capture(is_capture_file) {
        if (is_capture) file.write(ast::recording::pcap_header());
    }

    ast::recording::OutputFile file;
    ast::recording::TextBuffer packet;
    bool is_capture;
    bool has_failed = false; // there is a gap
};

namespace {

using namespace ast::recording;

ast_writer *open_writer(const char *path) {
    const auto kind = kind_of_name(path ? path : "");
    if (!kind || *kind == FileKind::json)
        throw CannotOpen(AST_RECORDING_ERROR_OPTION,
                         std::string("'") + (path ? path : "") +
                             "' ends in none of .pcap (a capture), .ast, .bin, .raw (blocks)");
    return new ast_writer(path, *kind == FileKind::pcap);
}

bool is_known(const ast_endpoint_t *endpoint) { return endpoint && endpoint->family != 0; }

Datagram datagram_of(int64_t time_ns, const ast_endpoint_t *sender, const ast_endpoint_t *receiver) {
    Datagram datagram;
    if (time_ns != AST_TIME_UNKNOWN) datagram.time = from_nanoseconds(time_ns);
    if (is_known(sender) && is_known(receiver) && sender->family == receiver->family)
        datagram.endpoints = {to_internal(*sender), to_internal(*receiver)};
    return datagram;
}

} // namespace

ast_writer_t *ast_writer_open(const char *path, ast_recording_error_t *error) {
    return or_error(error, [&] { return open_writer(path); });
}

bool ast_writer_write(ast_writer_t *writer, const uint8_t *octets, uint64_t count, int64_t time_ns,
                      const ast_endpoint_t *sender, const ast_endpoint_t *receiver, ast_recording_error_t *error) {
    return or_error(error, [&] {
        if (!writer || (!octets && count != 0)) throw std::invalid_argument("there is nothing to write");
        std::string_view written(reinterpret_cast<const char *>(octets), static_cast<size_t>(count));
        if (writer->is_capture) {
            writer->packet.clear();
            put_packet(writer->packet, datagram_of(time_ns, sender, receiver),
                       Octets(octets, static_cast<size_t>(count)));
            written = writer->packet.text();
        }
        writer->has_failed = true;
        writer->file.write(written);
        writer->has_failed = false;
        return true;
    });
}

bool ast_writer_finish(ast_writer_t *writer, ast_recording_error_t *error) {
    const bool is_whole = or_error(error, [&] {
        if (!writer) throw std::invalid_argument("there is nothing to write");
        if (writer->has_failed) throw std::runtime_error(writer->file.path() + ": is not whole");
        writer->file.replace();
        return true;
    });
    delete writer;
    return is_whole;
}

void ast_writer_discard(ast_writer_t *writer) { delete writer; }
