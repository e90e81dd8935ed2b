#include "write/listening_outlet.hpp"

#include "source/socket_endpoint.hpp"
#include "system/process.hpp"
#include "system/sockets.hpp"

namespace ast::recording {

namespace {

using asio::ip::tcp;

constexpr size_t kMostClients = 100;

} // namespace

ListeningOutlet::ListeningOutlet(const LiveUrl &url, Interruption &interruption) : interruption_(interruption) {
    try {
        listen(resolve<tcp>(url, context_).front());
    } catch (const std::system_error &error) {
        throw std::system_error(error.code(), url.text);
    }
    connections_.tell({OutletEvent::Kind::listening, to_endpoint(listener_.local_endpoint())});
    thread_ = system::start_thread([this] { serve(); });
}

void ListeningOutlet::listen(const tcp::endpoint &endpoint) {
    listener_.open(endpoint.protocol());
    listener_.set_option(tcp::acceptor::reuse_address(true));
    listener_.bind(endpoint);
    listener_.listen();
    listener_.non_blocking(true);
}

ListeningOutlet::~ListeningOutlet() {
    end_.interrupt();
    connections_.end();
    thread_.join();
}

void ListeningOutlet::serve() {
    for (;;) {
        const Connections::Turn turn = connections_.serve(system::socket_descriptor(listener_.native_handle()));
        if (turn == Connections::Turn::end) return;
        if (turn == Connections::Turn::client) accept();
    }
}

// One that the system has no descriptor for is asked again later; one too many is closed.
void ListeningOutlet::accept() {
    constexpr auto kPause = std::chrono::milliseconds(100);
    std::error_code failure;
    tcp::endpoint other;
    const system::Descriptor client = system::accept(listener_, other, failure);
    if (failure)
        end_.until(std::chrono::steady_clock::now() + kPause);
    else if (connections_.count() < kMostClients)
        connections_.add(client, to_endpoint(other));
    else
        system::close(client);
}

std::error_code ListeningOutlet::send(Octets octets, bool) { return connections_.send(octets); }

void ListeningOutlet::finish() {
    connections_.wait_for_all(interruption_);
    end_.interrupt();
    connections_.end();
    connections_.close();
}

} // namespace ast::recording
