#include "entry.hpp"

#include <ctime>

#include "harness.hpp"

namespace {

// What is linear takes far less, also with sanitizers; the time without an octet covers what is done once.
constexpr double kMostPerOctet_s = 50e-6;
constexpr double kMostWithoutAny_s = 0.5; // a target may make a long recording of a few octets

double processor_time_s() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

} // namespace

int LLVMFuzzerInitialize(int *, char ***) {
    ast_fuzz::registered_items();
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const double begin_s = processor_time_s();
    ast_fuzz::run(ast_fuzz::Input({data, size}));
    const double taken_s = processor_time_s() - begin_s;
    if (ast_fuzz::kIsTimed)
        ast_fuzz::require(taken_s <= kMostWithoutAny_s + kMostPerOctet_s * static_cast<double>(size), "takes too long");
    return 0;
}
