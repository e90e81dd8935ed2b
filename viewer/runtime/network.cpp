// There is no network.
#include "base/unreadable_input.hpp"
#include "source/live_source.hpp"
#include "source/tcp_source.hpp"

namespace ast::recording {

namespace {

[[noreturn]] void refuse() { throw UnreadableInput("comes from the network, which cannot be reached from here"); }

} // namespace

std::unique_ptr<DatagramSource> listen_to(const std::vector<LiveUrl> &, const std::string &, Interruption &,
                                          const Announce &) {
    refuse();
}

std::optional<TcpConnection> connect_tcp(const LiveUrl &, Interruption &, const Announce &) { refuse(); }

bool TcpSource::fill(Chunk &chunk) {
    has_ended_ = stream_.cut_off() || !blocks_->fill(chunk);
    return !has_ended_;
}

} // namespace ast::recording
