// Live datagrams, for those who need not know of sockets.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "datagram/datagram_source.hpp"
#include "source/live_url.hpp"

namespace ast::recording {

// As UdpSource.
std::unique_ptr<DatagramSource> listen_to(const std::vector<LiveUrl> &urls, const std::string &interface,
                                          Interruption &interruption, const Announce &announce);

} // namespace ast::recording
