// The readers of the command-line tool. The input is a file: a capture or raw blocks.

#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "damage.hpp"
#include "decode.hpp"
#include "harness.hpp"
#include "input.hpp"
#include "split.hpp"

namespace ast_fuzz {

namespace {

// A file in memory.
class File {
public:
    explicit File(Octets octets) : descriptor_(memfd_create("input", MFD_CLOEXEC)) {
        require(descriptor_ >= 0 &&
                    write(descriptor_, octets.data(), octets.size()) == static_cast<ssize_t>(octets.size()),
                "the input can be made a file");
    }
    ~File() { close(descriptor_); }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

// Reports of damage are made, but not shown.
void silence_reports() {
    static FILE *const nowhere = std::fopen("/dev/null", "w");
    stderr = nowhere;
}

void read_datagram(const astdump::Datagram &datagram, astdump::Decoder &decoder, astdump::Damage &damage) {
    for (uint64_t offset = 0; offset < datagram.octets.size();) {
        const astdump::Octets rest = datagram.octets.subspan(offset);
        const astdump::Frame frame = astdump::frame_block(rest);
        if (frame.framing != astdump::Framing::block) return damage.framing(datagram, offset, frame);
        require(frame.length > 0 && frame.length <= rest.size(), "a block runs past its datagram");
        const auto decoded = decoder.decode(datagram, 1, offset, rest.first(frame.length));
        require(decoded.block->valid != decoded.fault.has_value(), "a block is neither valid nor at fault");
        if (decoded.fault) damage.block(decoded);
        offset += frame.length;
    }
}

} // namespace

void run(Input input) {
    silence_reports();
    const File file(input.rest());
    astdump::Damage damage(false);
    static astdump::Decoder decoder(nullptr);
    astdump::Input source(file.path(), "", nullptr, damage);
    while (const auto datagram = source.next()) read_datagram(*datagram, decoder, damage);
    damage.summary();
    require(source.consumed() <= input.rest().size(), "more is read than there is");
}

} // namespace ast_fuzz
