// Times the public calls on recordings of realistic blocks, beside two floors on the same octets: copying them, and
// walking them by block length alone. Files of blocks back to back are arguments: a long stream is made of them.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <unistd.h>
#include <vector>

#include "records.hpp"
#include "stream.hpp"

namespace {

using bench::Sample;

using bench::block_length;
using bench::kHeaderOctets;

constexpr size_t kRecordsPerBlock = 8;
constexpr size_t kBlocks = 16;

// Blocks back to back, as they stand in a recording.
std::vector<uint8_t> recording_of(const Sample &sample) {
    const std::vector<uint8_t> block = bench::block_of(sample, kRecordsPerBlock);
    std::vector<uint8_t> recording;
    for (size_t b = 0; b < kBlocks; ++b) recording.insert(recording.end(), block.begin(), block.end());
    return recording;
}

template <typename Visitor>
void each_block(const std::vector<uint8_t> &recording, Visitor visit) {
    for (size_t offset = 0; offset < recording.size(); offset += block_length(&recording[offset]))
        visit(&recording[offset], recording.size() - offset);
}

// A decoded block is large: one for all measurements, in static storage, and filled in place by the initialisation of a
// fresh object rather than by an assignment, which would copy it.
alignas(ast_datablock_t) std::byte g_block[sizeof(ast_datablock_t)];

const ast_datablock_t &decode_block(const Sample &sample, const uint8_t *data, uint64_t available) {
    return *new (g_block) ast_datablock_t(ast_datablock_decode(data, available, *sample.uap));
}

const ast_datablock_t &smart_decode_block(const Sample &, const uint8_t *data, uint64_t available) {
    return *new (g_block) ast_datablock_t(ast_datablock_smart_decode(data, available));
}

const ast_datablock_t &decode_block_into(const Sample &sample, const uint8_t *data, uint64_t available) {
    static ast_datablock_t block;
    ast_datablock_decode_into(&block, data, available, *sample.uap);
    return block;
}

using BlockDecoder = const ast_datablock_t &(const Sample &sample, const uint8_t *data, uint64_t available);

void count(benchmark::State &state, size_t octets) {
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kBlocks * kRecordsPerBlock));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(octets));
}

void copy_octets(benchmark::State &state, const Sample &sample) {
    const std::vector<uint8_t> recording = recording_of(sample);
    std::vector<uint8_t> copy(recording.size());
    for ([[maybe_unused]] const auto _ : state) {
        std::memcpy(copy.data(), recording.data(), recording.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    count(state, recording.size());
}

void walk_lengths(benchmark::State &state, const Sample &sample) {
    const std::vector<uint8_t> recording = recording_of(sample);
    for ([[maybe_unused]] const auto _ : state)
        each_block(recording, [](const uint8_t *block, size_t) { benchmark::DoNotOptimize(block); });
    count(state, recording.size());
}

void walk_fspecs(benchmark::State &state, const Sample &sample) {
    const std::vector<uint8_t> recording = recording_of(sample);
    for ([[maybe_unused]] const auto _ : state) {
        each_block(recording, [&](const uint8_t *block, size_t available) {
            for (size_t r = 0; r < kRecordsPerBlock; ++r) {
                const size_t offset = kHeaderOctets + r * sample.octets.size();
                const ast_fspec_t fspec = ast_fspec_decode(block + offset, available - offset);
                for (uint32_t frn = 1; frn <= fspec.frn_count; ++frn)
                    benchmark::DoNotOptimize(ast_fspec_is_set(&fspec, frn));
            }
        });
    }
    count(state, recording.size());
}

void decode_records(benchmark::State &state, const Sample &sample) {
    const std::vector<uint8_t> recording = recording_of(sample);
    for ([[maybe_unused]] const auto _ : state) {
        each_block(recording, [&](const uint8_t *block, size_t available) {
            for (size_t r = 0; r < kRecordsPerBlock; ++r) {
                const size_t offset = kHeaderOctets + r * sample.octets.size();
                benchmark::DoNotOptimize(
                    ast_datarecord_decode(block + offset, available - offset, sample.category, *sample.uap));
            }
        });
    }
    count(state, recording.size());
}

void decode_blocks(benchmark::State &state, const Sample &sample, BlockDecoder *decode) {
    const std::vector<uint8_t> recording = recording_of(sample);
    for ([[maybe_unused]] const auto _ : state) {
        each_block(recording, [&](const uint8_t *block, size_t available) {
            benchmark::DoNotOptimize(decode(sample, block, available));
        });
    }
    count(state, recording.size());
}

// ---- A stream of many blocks in random order ----

constexpr size_t kStreamOctets = 20'000'000;

void copy_stream(benchmark::State &state, const std::vector<uint8_t> &stream) {
    std::vector<uint8_t> copy(stream.size());
    for ([[maybe_unused]] const auto _ : state) {
        std::memcpy(copy.data(), stream.data(), stream.size());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(stream.size()));
}

// Reads each block of the stream by `read(block, length)`, which returns the number of its records.
template <typename Read>
void read_stream(benchmark::State &state, const std::vector<uint8_t> &stream, Read read) {
    uint64_t records = 0;
    for ([[maybe_unused]] const auto _ : state) {
        records = 0;
        each_block(stream, [&](const uint8_t *block, size_t) { records += read(block, block_length(block)); });
        benchmark::DoNotOptimize(records);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(records));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(stream.size()));
}

uint64_t walk_length(const uint8_t *, uint64_t) { return 0; }

uint64_t decode_into(const uint8_t *data, uint64_t length) {
    static ast_datablock_t block;
    ast_datablock_decode_into(&block, data, length, AST_UAP_STANDARD);
    return block.record_count;
}

uint64_t split(const uint8_t *data, uint64_t length) {
    constexpr size_t kRoom = 65536;
    static ast_split_record_t records[kRoom];
    static ast_split_item_t items[kRoom];
    static ast_split_t split = {.records = records, .record_room = kRoom, .items = items, .item_room = kRoom};
    ast_datablock_split(&split, data, length, &AST_UAP_STANDARD);
    return split.record_count;
}

// With a reader that has learnt from the stream before.
void count_stream(benchmark::State &state, const std::vector<uint8_t> &stream) {
    const auto reader = std::make_unique<ast_reader_t>();
    each_block(stream, [&](const uint8_t *block, size_t available) {
        ast_reader_learn(reader.get(), block, available, nullptr);
    });
    reader->frozen = true;
    const auto census = std::make_unique<ast_census_t>();
    for ([[maybe_unused]] const auto _ : state) {
        ast_census_clear(census.get());
        if (ast_reader_count(reader.get(), census.get(), stream.data(), stream.size()) != stream.size())
            state.SkipWithError("blocks are left out");
    }
    uint64_t records = 0;
    for (const ast_census_group_t &group : std::span(census->groups, census->group_count)) records += group.records;
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(records));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(stream.size()));
}

void add_stream(const std::vector<uint8_t> &stream) {
    benchmark::RegisterBenchmark("stream: copy the octets", copy_stream, stream);
    const auto add = [&](const char *name, uint64_t (*read)(const uint8_t *, uint64_t)) {
        benchmark::RegisterBenchmark(name,
                                     [&stream, read](benchmark::State &state) { read_stream(state, stream, read); });
    };
    add("stream: walk the blocks by LEN", walk_length);
    add("stream: decode blocks into one", decode_into);
    add("stream: split blocks", split);
    benchmark::RegisterBenchmark("stream: count what blocks are made of", count_stream, stream);
}

// The whole way from octets to lines.
void write_json(benchmark::State &state, const Sample &sample) {
    const std::vector<uint8_t> recording = recording_of(sample);
    static char text[65536];
    for ([[maybe_unused]] const auto _ : state) {
        each_block(recording, [&](const uint8_t *data, size_t available) {
            const ast_datablock_t &block = decode_block_into(sample, data, available);
            ast_json_line_t line{};
            line.profile = "standard";
            for (uint64_t r = 0; r < block.record_count; ++r) {
                line.record = r + 1;
                benchmark::DoNotOptimize(ast_datarecord_to_json(text, sizeof text, &block.records[r], &line));
            }
        });
    }
    count(state, recording.size());
}

// The way back; counts octets of the record.
void read_json(benchmark::State &state, const Sample &sample) {
    const ast_datarecord_t record =
        ast_datarecord_decode(sample.octets.data(), sample.octets.size(), sample.category, *sample.uap);
    static char text[65536];
    static uint8_t octets[1024];
    const uint64_t chars = ast_datarecord_to_json(text, sizeof text, &record, nullptr);
    for ([[maybe_unused]] const auto _ : state) {
        const ast_json_result_t result = ast_datarecord_from_json(octets, sizeof octets, text, chars);
        if (!result.valid) state.SkipWithError("the record does not come back");
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(record.size));
}

// What a table of five columns asks of a record: the values of five of its items, one item after the other.
void walk_values(benchmark::State &state, const Sample &sample) {
    constexpr uint64_t kColumns = 5;
    const std::vector<uint8_t> recording = recording_of(sample);
    double sum = 0;
    const auto take = [](void *context, const ast_field_value_t *value) {
        *static_cast<double *>(context) += value->number;
    };
    for ([[maybe_unused]] const auto _ : state) {
        each_block(recording, [&](const uint8_t *data, size_t available) {
            const ast_datablock_t &block = decode_block_into(sample, data, available);
            for (uint64_t r = 0; r < block.record_count; ++r)
                for (uint64_t i = 0; i < kColumns; ++i)
                    ast_dataitem_walk(&block.records[r].items[i], *sample.uap, 0, take, &sum);
        });
        benchmark::DoNotOptimize(sum);
    }
    count(state, recording.size());
}

// A plot as a sender has it before it is encoded: the values of seven items.
struct Plot {
    ast_sac_sic_t source = {.valid = true, .sac = 25, .sic = 12};
    ast_time_of_day_t time = {.valid = true, .hour = 7, .minute = 33, .second = 41};
    ast_mode_3a_t mode_3a = {.valid = true, .code = 05123};
    ast_mode_c_t flight_level = {.valid = true, .validated = true, .flight_level = 1400};
    ast_target_address_t address = {.valid = true, .address = 0x4BA9D1};
    ast_aircraft_id_t identification = {.valid = true, .text = "THY1AB"};
    ast_uint_value_t track_number = {.valid = true, .value = 303};

    ast_datarecord_src_t record() {
        return {.category = 48,
                .uap = AST_UAP_STANDARD,
                .items = {{48010, &source},
                          {48140, &time},
                          {48070, &mode_3a},
                          {48090, &flight_level},
                          {48220, &address},
                          {48240, &identification},
                          {48161, &track_number}},
                .item_count = 7};
    }
};

void encode_record(benchmark::State &state) {
    static Plot plot;
    static const ast_datarecord_src_t source = plot.record();
    static uint8_t octets[64];
    ast_datarecord_t record{};
    for ([[maybe_unused]] const auto _ : state) {
        record = ast_datarecord_encode(octets, sizeof octets, &source);
        benchmark::DoNotOptimize(octets);
    }
    if (!record.valid) state.SkipWithError("the record does not encode");
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(record.size));
}

using ItemView = void(char *text, uint64_t capacity, const ast_dataitem_t *item);

// Shows every item of one record; counts items, and the characters written as octets.
void show_items(benchmark::State &state, const Sample &sample, ItemView *view) {
    const ast_datarecord_t record =
        ast_datarecord_decode(sample.octets.data(), sample.octets.size(), sample.category, *sample.uap);
    static char text[65536];
    int64_t characters = 0;
    for (uint64_t i = 0; i < record.item_count; ++i) {
        view(text, sizeof text, &record.items[i]);
        characters += static_cast<int64_t>(std::strlen(text));
    }
    for ([[maybe_unused]] const auto _ : state) {
        for (uint64_t i = 0; i < record.item_count; ++i) {
            view(text, sizeof text, &record.items[i]);
            benchmark::DoNotOptimize(text);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(record.item_count));
    state.SetBytesProcessed(state.iterations() * characters);
}

// Shows one record as its table.
void show_record(benchmark::State &state, const Sample &sample) {
    const ast_datarecord_t record =
        ast_datarecord_decode(sample.octets.data(), sample.octets.size(), sample.category, *sample.uap);
    static char text[65536];
    for ([[maybe_unused]] const auto _ : state) {
        ast_datarecord_get_detail_html(text, sizeof text, &record);
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(std::strlen(text)));
}

// A figure for octets that do not decode would mean nothing.
void require_valid(const Sample &sample, BlockDecoder *decode) {
    each_block(recording_of(sample), [&](const uint8_t *data, size_t available) {
        const ast_datablock_t &block = decode(sample, data, available);
        if (block.valid && block.record_count == kRecordsPerBlock && block.records[0].item_count == sample.item_count)
            return;
        std::fprintf(stderr, "the category %s block does not decode\n", sample.name);
        std::exit(EXIT_FAILURE);
    });
}

void add(const Sample &sample) {
    require_valid(sample, decode_block);
    const auto named = [&](const char *what) { return std::string(sample.name) + ": " + what; };
    benchmark::RegisterBenchmark(named("copy the octets").c_str(), copy_octets, sample);
    benchmark::RegisterBenchmark(named("walk the blocks by LEN").c_str(), walk_lengths, sample);
    benchmark::RegisterBenchmark(named("walk the FSPECs").c_str(), walk_fspecs, sample);
    benchmark::RegisterBenchmark(named("decode records").c_str(), decode_records, sample);
    benchmark::RegisterBenchmark(named("decode blocks").c_str(), decode_blocks, sample, decode_block);
    benchmark::RegisterBenchmark(named("decode blocks into one").c_str(), decode_blocks, sample, decode_block_into);
    benchmark::RegisterBenchmark(named("write lines of JSON").c_str(), write_json, sample);
    benchmark::RegisterBenchmark(named("read a record from JSON").c_str(), read_json, sample);
    benchmark::RegisterBenchmark(named("walk the values of five items").c_str(), walk_values, sample);
}

// Says beside each rate how many copies of the octets could have been made in that time, measured in the same run: rows
// of one group begin alike, and the first one is the copy.
class BesideCopy : public benchmark::ConsoleReporter {
public:
    BesideCopy() : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_ColorTabular : OO_Tabular) {}
    void ReportRuns(const std::vector<Run> &runs) override {
        std::vector<Run> shown = runs;
        for (Run &run : shown) compare(run);
        ConsoleReporter::ReportRuns(shown);
    }

private:
    void compare(Run &run) {
        const std::string name = run.benchmark_name();
        const auto rate = run.counters.find("bytes_per_second");
        if (rate == run.counters.end()) return;
        const std::string group = name.substr(0, name.find(':'));
        if (name.find("copy the octets") != std::string::npos) {
            group_ = group;
            copy_ = rate->second.value;
        }
        if (group == group_) run.counters["copies"] = copy_ / rate->second.value;
    }

    std::string group_;
    double copy_ = 0;
};

// Any other form of output is left to the library.
bool wants_console(int argc, char **argv) {
    return std::none_of(argv, argv + argc,
                        [](const char *argument) { return std::strstr(argument, "--benchmark_format"); });
}

} // namespace

int main(int argc, char **argv) {
    const bool is_console = wants_console(argc, argv);
    benchmark::Initialize(&argc, argv);
    ast_log_handler_reg(nullptr);

    const std::vector<uint8_t> stream = bench::shuffled_stream({argv + 1, argv + argc}, kStreamOctets);
    if (argc > 1 && stream.empty()) {
        std::fprintf(stderr, "%s: no blocks\n", argv[1]);
        return EXIT_FAILURE;
    }
    if (!stream.empty()) add_stream(stream);

    for (const Sample &sample : bench::kSamples) add(sample);
    const Sample &adsb = bench::kSamples.back();
    require_valid(adsb, smart_decode_block);
    benchmark::RegisterBenchmark("021: smart decode blocks", decode_blocks, adsb, smart_decode_block);

    benchmark::RegisterBenchmark("048: encode a record of 7 items", encode_record);

    const Sample &radar = bench::kSamples.front();
    benchmark::RegisterBenchmark("048: summaries", show_items, radar, ast_dataitem_get_summary);
    benchmark::RegisterBenchmark("048: detail views", show_items, radar, ast_dataitem_get_detail_html);
    benchmark::RegisterBenchmark("048: hexadecimal texts", show_items, radar, ast_dataitem_get_hex_str);
    benchmark::RegisterBenchmark("048: bit tables", show_items, radar, ast_dataitem_get_bin_html);
    benchmark::RegisterBenchmark("048: record tables", show_record, radar);

    BesideCopy beside_copy;
    benchmark::RunSpecifiedBenchmarks(is_console ? &beside_copy : nullptr);
    benchmark::Shutdown();
}
