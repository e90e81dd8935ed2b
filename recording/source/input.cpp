#include "source/input.hpp"

#include <algorithm>
#include <utility>

#include "base/unreadable_input.hpp"
#include "capture/capture.hpp"
#include "framing/block_header.hpp"
#include "source/framed_file.hpp"
#include "source/json_file.hpp"
#include "source/live_source.hpp"
#include "source/raw_file.hpp"
#include "source/tcp_source.hpp"
#include "source/text_file.hpp"

namespace ast::recording {

namespace {

// How much of a file is looked at to tell its framing.
constexpr size_t kHeadOctets = size_t{64} * 1024;

// Lines of digits may be parts of a larger text.
const FramingKind *recognise(Octets peeked, bool is_whole_file, const CategorySet &categories) {
    const Octets head = peeked.first(std::min(peeked.size(), kHeadOctets));
    const FramingKind *const framing = recognise_framing(head, is_whole_file);
    const bool may_be_text = framing ? framing->is_text : is_whole_file || head.size() == kHeadOctets;
    return may_be_text && is_text_of_octets(head, categories) ? find_framing("text") : framing;
}

const FramingKind *framing_of_recording(OctetStream &stream, const CategorySet &categories) {
    const Octets head = stream.peek(kHeadOctets + 1);
    return recognise(head, head.size() <= kHeadOctets, categories);
}

// Of a pipe or a file that grows, so much is looked at as it takes to find a frame; what stands there after a moment of
// silence, and may not be the beginning of one, is left to the reader of raw blocks.
const FramingKind *framing_of_live(OctetStream &stream, const CategorySet &categories) {
    constexpr int kMoment_ms = 300;
    for (bool is_end = false;;) {
        while (stream.peeked().size() < kHeadOctets && stream.peek_on(kHeadOctets, 0) == OctetStream::Peek::more)
            continue;
        const Octets head = stream.peeked();
        const FramingKind *const framing = recognise(head, is_end, categories);
        if (framing || is_end || head.size() >= kHeadOctets || stream.cut_off()) return framing;
        const OctetStream::Peek came = stream.peek_on(kHeadOctets, kMoment_ms);
        const Framing first = frame_block(head).framing;
        const bool is_block = first == Framing::block || first == Framing::short_length;
        if (came == OctetStream::Peek::quiet && is_block) return nullptr;
        is_end = came == OctetStream::Peek::end;
    }
}

// Tells captures by their magic numbers, and looks no further than these need. Sets the name of what it has found.
std::unique_ptr<DatagramSource> open_source(OctetStream &stream, const FramingKind *framing, const ReadOptions &options,
                                            std::string &name) {
    if (!framing) {
        if (const char *const form = Capture::form_of(stream)) {
            name = form;
            return std::make_unique<Capture>(stream, options.range);
        }
        framing = begins_json(stream)   ? find_framing("json")
                  : stream.is_at_rest() ? framing_of_recording(stream, options.categories)
                                        : framing_of_live(stream, options.categories);
    }
    if (!framing) framing = find_framing("raw");
    name = framing->name;
    if (name == "raw") return std::make_unique<RawFile>(stream, options.range);
    if (name == "text") return std::make_unique<TextFile>(stream, options.categories, options.range);
    if (name == "json") return std::make_unique<JsonFile>(stream, options.threads, options.range);
    return std::make_unique<FramedFile>(stream, *framing, options.range);
}

// What has no places that one could go to is not read in parts.
void check_places(const OctetStream &stream) {
    if (!stream.compression().empty())
        throw UnreadableInput(
            "is compressed, so that only its beginning can be found; unpack it to read a range of it");
    if (!stream.is_at_rest()) throw UnreadableInput("is no file of which a range can be read");
}

} // namespace

Input::Input(const Origin &origin, const ReadOptions &options, Interruption *interruption, const Announce &announce)
    : interruption_(interruption), filter_(options.datagrams), is_part_(options.range.is_part()) {
    const std::vector<LiveUrl> urls = origin.octets ? std::vector<LiveUrl>() : read_live_urls(origin.path);
    if (origin.octets) {
        stream_ = std::make_unique<OctetStream>(*origin.octets, interruption);
        open(origin.framing ? origin.framing : options.framing, options);
    } else if (urls.empty()) {
        stream_ = std::make_unique<OctetStream>(origin.path, interruption, options.follow);
        open(options.framing, options);
    } else if (urls.front().is_tcp) {
        connect(urls.front(), *interruption, options, announce);
    } else {
        framing_ = "udp";
        source_ = listen_to(urls, options.interface, *interruption, announce);
    }
}

void Input::open(const FramingKind *framing, const ReadOptions &options) {
    stream_->take_off_compression();
    if (options.range.is_part()) check_places(*stream_);
    source_ = open_source(*stream_, framing, options, framing_);
    if (!stream_->compression().empty()) framing_.append(", ").append(stream_->compression());
}

Input::Input(std::unique_ptr<DatagramSource> source, const DatagramChoice &choice)
    : source_(std::move(source)), filter_(choice) {}

void Input::connect(const LiveUrl &url, Interruption &interruption, const ReadOptions &options,
                    const Announce &announce) {
    const auto connection = connect_tcp(url, interruption, announce);
    is_read_ = !connection;
    if (!connection) return;
    stream_ = std::make_unique<OctetStream>(connection->descriptor, &interruption);
    open(options.framing, options);
    framing_.append(", tcp");
    source_ = std::make_unique<TcpSource>(std::move(source_), *stream_, connection->endpoints);
}

// What is to be said behind the last datagram; false when that is nothing.
bool Input::tell_end(Chunk &chunk) {
    Reports &reports = chunk.reports();
    if (!filter_.complaint().empty()) reports.note(filter_.complaint());
    if (!stream_) return !reports.empty();
    if (!stream_->damage().empty())
        reports.unfinished(stream_->damage());
    else if (!has_any_ && !stream_->cut_off())
        reports.note("holds no " + (stream_->consumed() == 0 ? "octets" : source_->nothing()) +
                     (is_part_ ? " that begin in the range" : ""));
    return !reports.empty();
}

bool Input::fill(Chunk &chunk) {
    chunk.clear();
    if (!filter_.is_idle()) chunk.set_filter(&filter_);
    chunk.set_interruption(interruption_);
    bool filled = !is_read_ && source_->fill(chunk);
    has_any_ = has_any_ || chunk.has_met_any() || !chunk.reports().empty();
    chunk.leave_out();
    if (!filled) filled = !std::exchange(is_read_, true) && tell_end(chunk);
    chunk.number_blocks(next_number_);
    next_number_ = chunk.end_number;
    if (stream_) chunk.consumed = stream_->consumed();
    return filled;
}

} // namespace ast::recording
