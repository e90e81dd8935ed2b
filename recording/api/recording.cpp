#include "api/recording.hpp"

#include <algorithm>
#include <chrono>
#include <new>
#include <utility>

#include "api/failure.hpp"
#include "base/silence.hpp"
#include "system/files.hpp"
#include "system/process.hpp"

namespace ast::recording {

namespace {

constexpr size_t kChunkOctets = size_t{64} * 1024;

bool is_regular_file(const std::string &path) {
    const auto file = system::look_at(path);
    return file && file->is_regular;
}

// Whether the caller would have to wait for what comes.
bool is_waited_for(const Origin &origin) {
    return !origin.octets && (origin.path == "-" || !is_regular_file(origin.path));
}

bool is_udp(const std::vector<Origin> &origins) { return origins.front().path.starts_with("udp://"); }

int64_t to_nanoseconds(const std::optional<Time> &time) {
    return time ? nanoseconds_of(*time).value_or(AST_TIME_UNKNOWN) : AST_TIME_UNKNOWN;
}

} // namespace

// Sockets are opened at once, so that whoever sends next is heard; all else is when it is asked for.
Recording::Recording(std::vector<Origin> origins, const ReadOptions &read, const ast_recording_options_t &options)
    : read_options_(read),
      report_(options.report),
      context_(options.context),
      inputs_(origins, read, &interruption_, *this),
      is_threaded_(options.threads != 0 || read.follow || std::ranges::any_of(origins, is_waited_for)) {
    const Silence silence;
    std::ranges::for_each(origins, check_access);
    if (is_udp(origins)) {
        is_open_ = inputs_.open_next();
        if (!is_open_) throw CannotOpen(error_.code, error_.text);
    }
    const bool is_live = read.follow || is_udp(origins) || std::ranges::any_of(origins, is_waited_for);
    const size_t threads = is_live ? 1 : options.threads + size_t{1};
    readers_.resize(threads);
    is_opening_ = false;
    if (!is_threaded_) own_job_ = std::make_unique<BlockJob>(kChunkOctets);
    has_thread_ = is_threaded_;
    if (has_thread_) thread_ = system::start_thread([this] { read_all(); });
}

Recording::~Recording() {
    interruption_.interrupt();
    handover_.close();
    if (thread_.joinable()) thread_.join();
}

// ---- Reading ----

// One thread of those that it starts mostly waits for the caller.
void Recording::read_all() {
    const Silence silence;
    try {
        Pipeline pipeline(*this, readers_.size(), kChunkOctets);
        while ((std::exchange(is_open_, false) || inputs_.open_next()) && !interruption_.ended())
            inputs_.attempt([&] { pipeline.run(); });
    } catch (const std::bad_alloc &) {
        failed({{}, "no memory", std::make_error_code(std::errc::not_enough_memory)});
    } catch (const std::exception &error) {
        failed({{}, error.what(), {}});
    }
    hand(End());
}

// Goes on by one piece where the caller reads.
void Recording::pull() {
    if (!is_open_) is_open_ = inputs_.open_next();
    if (!is_open_) return receive(End());
    bool is_filled = false;
    inputs_.attempt([&] { is_filled = read(*own_job_); });
    is_open_ = is_filled;
    if (!is_filled) return inputs_.close();
    work(*own_job_, 0);
    take(*own_job_);
}

bool Recording::read(Job &job) {
    const Silence silence;
    if (!inputs_.fill(job)) return false;
    next_datagram_ = static_cast<BlockJob &>(job).number_datagrams(next_datagram_);
    return true;
}

void Recording::work(Job &job, size_t worker) {
    const Silence silence;
    if (!readers_[worker]) readers_[worker] = std::make_unique<BlockReader>(read_options_.categories, interruption_);
    readers_[worker]->read(static_cast<BlockJob &>(job));
}

bool Recording::take(Job &job) { return hand(Filled{&static_cast<BlockJob &>(job)}) && !interruption_.ended(); }

bool Recording::hand(const Delivery &delivery) {
    if (has_thread_) return handover_.give(delivery);
    std::visit([this](const auto &any) { receive(any); }, delivery);
    return true;
}

void Recording::opened(const std::string &name, const Input &input) {
    next_datagram_ = 1;
    hand(
        Opened{.place = inputs_.place(), .name = name, .framing = input.framing(), .octets = input.size().value_or(0)});
}

void Recording::failed(const InputFailure &failure) {
    Told told{.report = Report(AST_REPORT_UNREADABLE, AST_REASON_UNREADABLE),
              .file = failure.path,
              .code = code_of(failure.code)};
    told.report.detail = failure.reason;
    hand(told);
}

void Recording::announced(const std::string &what) {
    Told told{.report = Report(AST_REPORT_NOTE, AST_REASON_NOTE), .file = inputs_.name()};
    told.report.detail = what;
    hand(told);
}

// ---- On the caller's side ----

bool Recording::read_on(int limit_ms) {
    if (!is_threaded_) {
        const Silence silence;
        pull();
        return true;
    }
    const Delivery *const delivery = handover_.take(limit_ms, interruption_);
    if (!delivery) return false;
    holds_delivery_ = true;
    std::visit([this](const auto &any) { receive(any); }, *delivery);
    if (!job_) end_job();
    return true;
}

void Recording::receive(const Opened &opened) {
    octets_read_ += std::exchange(consumed_, 0);
    input_ = opened;
    has_input_ = true;
}

void Recording::receive(const Told &told) {
    if (!is_opening_ || told.code == AST_RECORDING_ERROR_NONE) tell(told.report, told.file.c_str());
    if (told.code == AST_RECORDING_ERROR_NONE) return;
    fail(told.code, told.file.empty() ? told.report.detail : told.file + ": " + told.report.detail);
}

void Recording::receive(const Filled &filled) {
    job_ = filled.job;
    next_block_ = next_report_ = learnt_ = 0;
}

void Recording::receive(const End &) {
    if (interruption_.ended()) return static_cast<void>(end(AST_RECORDING_INTERRUPTED));
    end(error_.code == AST_RECORDING_ERROR_NONE ? AST_RECORDING_ENDED : AST_RECORDING_FAILED);
}

// The first failure is kept.
void Recording::fail(uint32_t code, std::string_view text) {
    if (error_.code == AST_RECORDING_ERROR_NONE) set_error(error_, code, text);
}

bool Recording::end(uint32_t phase) {
    phase_ = phase;
    return false;
}

void Recording::tell(const Report &report, const char *file) {
    ++reports_[report.data.kind];
    if (!report_) return;
    ast_recording_report_t facts = report.facts();
    if (!facts.file) facts.file = file;
    report_(context_, &facts);
}

bool Recording::next_of_job(ast_recording_block_t &block) {
    const std::vector<Report> &reports = job_->reports.list();
    while (!interruption_.ended() && next_report_ < reports.size() && reports[next_report_].place <= next_block_)
        tell(reports[next_report_++], input_.name.c_str());
    if (interruption_.ended() || next_block_ == job_->blocks.size()) return false;
    last_ = &job_->blocks[next_block_++];
    is_split_ = false;
    fill(block, *last_);
    ++blocks_;
    return true;
}

void Recording::end_job() {
    if (job_ && job_->chunk.consumed != 0) consumed_ = job_->chunk.consumed;
    if (job_ && job_->chunk.consumed == 0) // datagrams from the network
        for (const Datagram &datagram : job_->chunk.datagrams()) consumed_ += datagram.octets.size();
    job_ = nullptr;
    last_ = nullptr;
    if (std::exchange(holds_delivery_, false)) handover_.done();
}

bool Recording::next(ast_recording_block_t &block, int limit_ms) try {
    block = {};
    if (phase_ > AST_RECORDING_QUIET) return false;
    phase_ = AST_RECORDING_READING;
    if (job_ && next_of_job(block)) return true; // as a rule, and without looking at a clock
    using Clock = std::chrono::steady_clock;
    const auto end_of_wait = Clock::now() + std::chrono::milliseconds(limit_ms);
    for (int left_ms = limit_ms;;) {
        if (interruption_.ended()) {
            end_job();
            return end(AST_RECORDING_INTERRUPTED);
        }
        if (job_ && next_of_job(block)) return true;
        end_job();
        if (!read_on(left_ms) && !interruption_.ended()) return end(AST_RECORDING_QUIET);
        if (phase_ != AST_RECORDING_READING) return false;
        if (limit_ms < 0) continue;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_of_wait - Clock::now());
        left_ms = static_cast<int>(std::max<int64_t>(left.count(), 0));
    }
} catch (const std::bad_alloc &) {
    fail(AST_RECORDING_ERROR_MEMORY, "no memory");
    return end(AST_RECORDING_FAILED);
} catch (const std::exception &error) {
    fail(AST_RECORDING_ERROR_INPUT, error.what());
    return end(AST_RECORDING_FAILED);
}

void Recording::fill(ast_recording_block_t &block, const HandedBlock &from) const {
    const Datagram &datagram = *from.datagram;
    block.octets = from.octets.data();
    block.length = from.octets.size();
    block.records = from.records;
    block.input = datagram.file ? inputs_.place_of(*datagram.file) : input_.place;
    block.number = from.number;
    block.datagram = from.datagram_number;
    block.packet = datagram.packet;
    block.offset = datagram.offset + from.offset;
    block.file = datagram.file ? datagram.file->c_str() : input_.name.c_str();
    block.time_ns = to_nanoseconds(datagram.time);
    if (datagram.endpoints) {
        block.sender = to_public(datagram.endpoints->source);
        block.receiver = to_public(datagram.endpoints->destination);
    }
    block.read = from.read;
    block.state = from.state;
}

// What was known when the block was split, so that it is read alike: its profile alone does not tell that.
EditionMemory &Recording::editions_of_last() {
    if (learnt_ == 0) {
        editions_ = job_->known.editions;
        grows_ = editions_.grows();
        editions_.freeze();
    }
    for (; learnt_ < next_block_; ++learnt_)
        if (grows_) editions_.learn(job_->blocks[learnt_].octets);
    return editions_;
}

// Split once more, where it is asked for: most blocks are looked at whole or not at all.
const SplitBlock &Recording::split_last() {
    if (!is_split_) {
        const Silence silence;
        if (!split_) split_ = std::make_unique<SplitBlock>();
        split_->read(editions_of_last(), last_->octets);
        is_split_ = true;
    }
    return *split_;
}

bool Recording::get_record(uint64_t index, ast_datarecord_t &record) {
    if (!last_ || index >= last_->records) return false;
    const SplitBlock &split = split_last();
    if (index >= split.record_count) return false;
    record = split.records[index];
    return true;
}

DecodedBlock Recording::split_block() {
    return {.datagram = last_->datagram,
            .number = last_->number,
            .offset = last_->offset,
            .octets = last_->octets,
            .block = &split_last()};
}

bool Recording::decode(ast_datablock_t &block) {
    if (!last_) return false;
    const Silence silence;
    return editions_of_last().decode(block, last_->octets);
}

uint32_t Recording::get_state(ast_recording_state_t &state) const {
    state = {};
    state.phase = phase_;
    state.file = has_input_ ? input_.name.c_str() : nullptr;
    state.framing = has_input_ ? input_.framing.c_str() : nullptr;
    state.octets_read = octets_read_ + consumed_;
    state.file_octets = input_.octets;
    state.blocks = blocks_;
    std::ranges::copy(reports_, state.reports);
    state.error = error_;
    return phase_;
}

} // namespace ast::recording
