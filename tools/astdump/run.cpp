#include "run.hpp"

#include <cstdio>
#include <system_error>
#include <utility>

namespace astdump {

Run::Run(const Options &options, std::vector<std::unique_ptr<Sink>> sinks, Damage &damage, Progress progress)
    : options_(options), sinks_(std::move(sinks)), damage_(damage), progress_(progress), decoder_(options.profile) {
    if (options.follow) waiting_.emplace();
}

int Run::files() {
    for (const std::string &path : options_.files) {
        if (done() || std::ferror(stdout)) break;
        try {
            file(path);
        } catch (const std::system_error &error) {
            clear_line();
            std::fprintf(stderr, "astdump: %s: %s\n", path.c_str(), error.code().message().c_str());
            unreadable_ = true;
        }
    }
    clear_line();
    for (const auto &sink : sinks_) sink->finish();
    damage_.summary();
    if (unreadable_) return kExitUnusable;
    return damage_.any() ? kExitDamaged : kExitClean;
}

void Run::file(const std::string &path) {
    const std::string name = path == "-" ? "standard input" : path;
    damage_.set_file(name);
    Input input(path, options_.interface, waiting_ ? &*waiting_ : nullptr, damage_);
    for (const auto &sink : sinks_) sink->file(name);
    number_ = 0;
    while (!done() && !std::ferror(stdout)) {
        const auto next = input.next();
        if (!next) break;
        datagram(*next);
        progress_.update(name, input.consumed(), input.size(), number_);
    }
}

void Run::datagram(const Datagram &datagram) {
    for (uint64_t offset = 0; offset < datagram.octets.size() && !done();) {
        const Octets rest = datagram.octets.subspan(offset);
        const Frame frame = frame_block(rest);
        if (frame.framing != Framing::block) return damage_.framing(datagram, offset, frame);
        ++number_;
        if (options_.categories.test(frame.category)) block(datagram, offset, rest.first(frame.length));
        offset += frame.length;
    }
}

void Run::block(const Datagram &datagram, uint64_t offset, Octets octets) {
    DecodedBlock decoded = decoder_.decode(datagram, number_, offset, octets);
    decoded.shown = select_records(*decoded.block, options_.where);
    if (options_.where.empty() || decoded.shown.any()) {
        ++shown_;
        for (const auto &sink : sinks_) sink->block(decoded);
    }
    if (decoded.fault) damage_.block(decoded);
}

} // namespace astdump
