#include "datagram/window.hpp"

#include <algorithm>

namespace ast::recording {

void Window::open(Chunk &chunk) {
    std::ranges::copy(left_over_, chunk.room().data());
    chunk.add_read(left_over_.size());
    left_over_.clear();
}

// No more than the limit at a time, so that what is left over fits the next chunk, too.
bool Window::read(Chunk &chunk) {
    const size_t count = stream_.read(chunk.room().data(), std::min(chunk.limit(), chunk.room().size()));
    chunk.add_read(count);
    return count != 0;
}

void Window::leave(const Chunk &chunk, uint64_t begin) {
    const Octets rest = chunk.octets().subspan(begin);
    left_over_.assign(rest.begin(), rest.end());
}

} // namespace ast::recording
