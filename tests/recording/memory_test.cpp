// Memory that runs out, wherever that is, by threads or without them: told, and nothing else.

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <new>

#include "recording/recorded.hpp"

namespace {

constexpr int64_t kAll = INT64_MAX;
std::atomic<int64_t> left = kAll; // allocations until there is no memory

void *allocate(size_t size) {
    if (left.load() != kAll && left.fetch_sub(1) <= 0) return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

// Not inlined, so that no compiler holds it against the operators that it serves.
[[gnu::noinline]] void release(void *memory) { std::free(memory); }

} // namespace

void *operator new(size_t size) {
    if (void *const memory = allocate(size)) return memory;
    throw std::bad_alloc();
}
void *operator new[](size_t size) { return operator new(size); }
void *operator new(size_t size, const std::nothrow_t &) noexcept { return allocate(size); }
void operator delete(void *memory) noexcept { release(memory); }
void operator delete[](void *memory) noexcept { release(memory); }
void operator delete(void *memory, size_t) noexcept { release(memory); }
void operator delete[](void *memory, size_t) noexcept { release(memory); }
void operator delete(void *memory, const std::nothrow_t &) noexcept { release(memory); }

namespace ast_test {

namespace {

// What comes of a recording when so many allocations succeed: 0 in the end.
uint32_t code_after(int64_t allocations, const std::vector<uint8_t> &octets, uint32_t threads) {
    const ast_recording_options_t options = {.threads = threads};
    ast_recording_error_t error;
    left = allocations;
    const Recording recording(
        ast_recording_open_octets(octets.data(), octets.size(), "of a name that is long enough", &options, &error));
    ast_recording_block_t block;
    ast_datarecord_t record;
    static ast_datablock_t decoded;
    bool has_all = true;
    while (recording && ast_recording_next(recording.get(), &block)) {
        has_all = ast_recording_get_record(recording.get(), 0, &record) && has_all;
        ast_recording_decode(recording.get(), &decoded);
    }
    left = kAll;
    if (!recording) return error.code;
    const ast_recording_state_t state = state_of(recording.get());
    EXPECT_EQ(state.phase, state.error.code == 0 ? AST_RECORDING_ENDED : AST_RECORDING_FAILED);
    return !has_all && state.error.code == 0 ? AST_RECORDING_ERROR_MEMORY : state.error.code;
}

TEST(Memory, RunsOutAnywhere) {
    for (const char *const name : {"radar.ast", "tracks.pcap", "categories.json"}) {
        const std::vector<uint8_t> octets = contents(sample(name));
        for (const uint32_t threads : {0U, 2U}) {
            ASSERT_EQ(code_after(kAll, octets, threads), 0U) << name;
            // With threads, there may be one less, which is no failure, at some places.
            int64_t failures = 0;
            for (int64_t allocations = 0, enough = 0; enough < 20; ++allocations) {
                const uint32_t code = code_after(allocations, octets, threads);
                ASSERT_TRUE(code == 0 || code == AST_RECORDING_ERROR_MEMORY) << name << ' ' << allocations;
                enough = code == 0 ? enough + 1 : 0;
                failures += code != 0;
            }
            EXPECT_GT(failures, 10) << name;
        }
    }
}

// Each kind of condition, and all of them met.
TEST(Memory, IsNotNeededToMatchARecord) {
    ast_filter_t *filter = nullptr;
    for (int64_t allocations = 0; !filter; allocations += 1 + allocations / 16) {
        ast_filter_error_t error;
        left = allocations;
        filter =
            ast_filter_open("squawk=2345 and callsign in (KLM*, DLH*) and I048/020/TYP=\"roll-call\" and I140>12h and "
                            "type!=north marker and not (fl<100 or within 1nm of 0,0) and I250/MCP_ALT and icao=3c*",
                            &error);
        left = kAll;
        ASSERT_TRUE(filter || std::string(error.text) == "no memory") << error.text;
    }
    const Recording recording = open({sample("radar.ast")});
    ast_recording_block_t block;
    ast_datarecord_t record;
    int met = 0;
    while (ast_recording_next(recording.get(), &block)) {
        for (uint64_t r = 0; ast_recording_get_record(recording.get(), r, &record); ++r) {
            left = 0;
            met += ast_filter_matches(filter, &record, nullptr) ? 1 : 0;
            left = kAll;
        }
    }
    EXPECT_EQ(met, 1);
    ast_filter_close(filter);
}

// In whatever is asked for: told, and the stream can be released.
TEST(Memory, RunsOutForColumns) {
    const std::vector<uint8_t> octets = contents(sample("radar.pcap"));
    for (const char *const asked : {"common", "all"}) {
        const ast_columns_options_t options = {.columns = asked, .categories = "48", .rows = 100};
        int enough = 0;
        for (int64_t allocations = 0; enough < 3; allocations += 1 + allocations / 8) {
            const Recording recording = open(octets);
            ast_recording_error_t error;
            ArrowArrayStream stream;
            ArrowSchema schema;
            ArrowArray batch;
            left = allocations;
            const bool has_memory = ast_columns_get_stream(recording.get(), &options, &stream, &error);
            int failure = has_memory ? stream.get_schema(&stream, &schema) : ENOMEM;
            if (failure == 0) schema.release(&schema);
            int64_t rows = 0;
            while (failure == 0 && (failure = stream.get_next(&stream, &batch)) == 0 && batch.release) {
                rows += batch.length;
                batch.release(&batch);
            }
            left = kAll;
            ASSERT_EQ(error.code, has_memory ? AST_RECORDING_ERROR_NONE : AST_RECORDING_ERROR_MEMORY) << error.text;
            ASSERT_TRUE(failure == 0 ? rows == 177 : failure == ENOMEM) << asked << ' ' << failure << ' ' << rows;
            enough += failure == 0;
            if (stream.release) stream.release(&stream);
        }
    }
}

} // namespace

} // namespace ast_test
