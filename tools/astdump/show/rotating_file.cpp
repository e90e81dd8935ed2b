#include "show/rotating_file.hpp"

#include <ctime>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

#include "base/counted.hpp"
#include "show/chosen_datagrams.hpp"
#include "show/stamped.hpp"
#include "show/terminal.hpp"
#include "show/write_file.hpp"
#include "write/packets.hpp"

namespace ast::recording::astdump {

namespace {

class StampedPacketRenderer : public DatagramRenderer {
public:
    explicit StampedPacketRenderer(bool remainders) : DatagramRenderer(remainders, Behind::trailers) {}

private:
    void put(TextBuffer &out, const Datagram &datagram, Octets payload) override {
        packet_.clear();
        put_packet(packet_, datagram, payload);
        put_stamped(out, datagram.time, packet_.text());
    }

    TextBuffer packet_;
};

int64_t period_of(const Time &time, const Rotation &rotation) {
    return rotation.period_s == 0 ? 0 : time.seconds / rotation.period_s;
}

} // namespace

std::unique_ptr<Renderer> RotatingFile::renderer() const {
    return std::make_unique<StampedPacketRenderer>(remainders_);
}

// "day-20140225-120000.pcap", or "day-20140225-120000-2.pcap" where there is that already.
std::string RotatingFile::name_for(const Time &time) const {
    const auto seconds = static_cast<std::time_t>(time.seconds);
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    std::ostringstream text;
    text << std::put_time(&utc, pattern_.c_str());
    const std::string first = text.str();
    const size_t extension = first.rfind('.');
    std::string name = first;
    for (int i = 2; ::access(name.c_str(), F_OK) == 0; ++i)
        name = first.substr(0, extension) + '-' + std::to_string(i) + first.substr(extension);
    return name;
}

// What comes out of its order goes with what it came with.
bool RotatingFile::is_full(const std::optional<Time> &time, size_t octets) const {
    if (time && period_of(*time, rotation_) > period_) return true;
    return rotation_.octets != 0 && file_->written() + octets > rotation_.octets;
}

void RotatingFile::begin(const Time &time) {
    close();
    period_ = period_of(time, rotation_);
    file_.emplace(name_for(time), inputs_);
    write(pcap_header());
}

void RotatingFile::close() {
    if (!file_) return;
    file_->replace();
    whole_.push_back(file_->path());
    file_.reset();
    if (rotation_.keep == 0 || whole_.size() <= rotation_.keep) return;
    ::unlink(whole_.front().c_str());
    whole_.pop_front();
}

// What a full disk has left of a file is worth keeping.
void RotatingFile::write(std::string_view octets) try { file_->write(octets); } catch (const std::runtime_error &) {
    const std::string whole = counted(file_->written(), "octet");
    tell(file_->path() + ": broken off; the first " + whole + " are in " + file_->keep_part());
    throw;
}

void RotatingFile::take(std::string_view rendered) {
    each_stamped(rendered, [&](const std::optional<Time> &time, std::string_view packet) {
        if (!file_ || is_full(time, packet.size())) begin(time ? *time : now());
        write(packet);
    });
}

void RotatingFile::finish(uint64_t) { close(); }

void RotatingFile::break_off() {
    if (file_) tell_part(*file_);
}

} // namespace ast::recording::astdump
