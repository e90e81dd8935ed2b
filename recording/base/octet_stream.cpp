#include "base/octet_stream.hpp"

#include <algorithm>
#include <utility>

#include "system/files.hpp"

namespace ast::recording {

namespace {

constexpr size_t kOctetsAtATime = size_t{64} * 1024; // of compressed files, and of what they hold

} // namespace

// With an interruption, a pipe that nobody writes to yet is waited for by that, and not here where it is opened.
OctetStream::OctetStream(const std::string &path, Interruption *interruption, bool follow)
    : descriptor_(
          system::file_descriptor(path == "-" ? system::kStandardInput : system::open_to_read(path, !interruption))),
      interruption_(interruption) {
    const auto file = system::look_at(static_cast<int>(descriptor_.number));
    if (!file || !file->is_regular) return;
    grows_ = interruption_ && follow;
    is_at_rest_ = !grows_;
    if (is_at_rest_) size_ = file->octets;
}

OctetStream::~OctetStream() { system::close(descriptor_); }

size_t OctetStream::read_memory(uint8_t *buffer, size_t count) {
    const Octets taken = cut_off() ? Octets() : memory_.first(std::min(count, memory_.size()));
    std::ranges::copy(taken, buffer);
    memory_ = memory_.subspan(taken.size());
    return taken.size();
}

size_t OctetStream::read_file(uint8_t *buffer, size_t count) {
    if (!descriptor_) return read_memory(buffer, count);
    for (;;) {
        if (interruption_ && !interruption_->for_input(descriptor_)) return 0;
        const auto got = system::read(descriptor_, {buffer, count});
        if (!got) continue;
        if (*got != 0 || !grows_) return *got;
        interruption_->for_growth();
    }
}

void OctetStream::take_off_compression() {
    compression_ = find_compression(peek(kCompressionMagicOctets));
    if (!compression_) return;
    packed_ = std::move(peeked_);
    peeked_.clear();
    size_.reset();
    is_at_rest_ = !grows_; // what is compressed has been recorded before, also where it comes through a pipe
}

size_t OctetStream::read_plain(uint8_t *buffer, size_t count) {
    if (!compression_) return read_file(buffer, count);
    if (plain_begin_ == plain_.size() && !unpack()) return 0;
    const Octets plain = Octets(plain_).subspan(plain_begin_);
    const Octets taken = plain.first(std::min(count, plain.size()));
    std::ranges::copy(taken, buffer);
    plain_begin_ += taken.size();
    return taken.size();
}

// As much at a time whoever reads it: how far damaged data are read depends on that. False at their end.
bool OctetStream::unpack() {
    const auto end = [&](std::string what) {
        damage_ = "the " + std::string(compression_->name()) + " data " + std::move(what);
        return false;
    };
    plain_begin_ = 0;
    while (damage_.empty()) {
        plain_.resize(kOctetsAtATime);
        const Compression::Step step = compression_->unpack(Octets(packed_).subspan(packed_begin_), plain_);
        packed_begin_ += step.taken;
        plain_.resize(step.given);
        if (step.given != 0) return true;
        if (step.error) return end(std::string("are damaged: ") + step.error);
        if (step.taken != 0 || read_packed()) continue;
        return compression_->is_whole() || cut_off() ? false : end("end too early");
    }
    return false;
}

bool OctetStream::read_packed() {
    packed_.erase(packed_.begin(), packed_.begin() + static_cast<std::ptrdiff_t>(packed_begin_));
    packed_begin_ = 0;
    const size_t had = packed_.size();
    packed_.resize(had + kOctetsAtATime);
    const size_t count = read_file(packed_.data() + had, kOctetsAtATime);
    packed_.resize(had + count);
    return count != 0;
}

Octets OctetStream::peek(size_t count) {
    while (peeked_.size() < count) {
        const size_t had = peeked_.size();
        peeked_.resize(count);
        const size_t got = read_plain(peeked_.data() + had, count - had);
        peeked_.resize(had + got);
        if (got == 0) break;
    }
    return Octets(peeked_).first(std::min(count, peeked_.size()));
}

// Octets, or the end.
bool OctetStream::comes_within(int limit_ms) const {
    if (interruption_) return interruption_->has_input(descriptor_, limit_ms);
    system::Awaited file{.descriptor = descriptor_};
    system::wait({&file, 1}, std::chrono::milliseconds(limit_ms));
    return file.is_ready;
}

// A file that grows can always be read, and gives nothing at its end.
OctetStream::Peek OctetStream::peek_on(size_t count, int limit_ms) {
    if (!comes_within(limit_ms)) return Peek::quiet;
    const size_t had = peeked_.size();
    std::vector<uint8_t> more(std::max(count, had) - had);
    const auto got = system::read(descriptor_, more);
    if (!got) return Peek::quiet;
    peeked_.insert(peeked_.end(), more.begin(), more.begin() + static_cast<std::ptrdiff_t>(*got));
    if (*got != 0) return Peek::more;
    if (grows_ && limit_ms != 0) interruption_->for_growth();
    return grows_ ? Peek::quiet : Peek::end;
}

void OctetStream::put_back(Octets octets) {
    peeked_.insert(peeked_.begin(), octets.begin(), octets.end());
    consumed_ -= octets.size();
}

void OctetStream::go_to(uint64_t offset) {
    consumed_ = std::min(offset, *size_);
    peeked_.clear();
    if (descriptor_) return system::set_place(static_cast<int>(descriptor_.number), static_cast<int64_t>(consumed_));
    const uint64_t taken = *size_ - memory_.size();
    memory_ = Octets(memory_.data() - taken, *size_).subspan(consumed_);
}

bool OctetStream::is_ready() const {
    if (!descriptor_ || !peeked_.empty() || plain_begin_ < plain_.size() || packed_begin_ < packed_.size()) return true;
    system::Awaited file{.descriptor = descriptor_};
    system::wait({&file, 1}, std::chrono::nanoseconds::zero());
    return !grows_ && file.is_ready;
}

size_t OctetStream::read(uint8_t *buffer, size_t count) {
    size_t got = std::min(count, peeked_.size());
    if (got > 0) {
        std::copy_n(peeked_.begin(), got, buffer);
        peeked_.erase(peeked_.begin(), peeked_.begin() + static_cast<std::ptrdiff_t>(got));
    } else {
        got = read_plain(buffer, count);
    }
    consumed_ += got;
    return got;
}

} // namespace ast::recording
