// The recording that is open.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "ask/filter.hpp"
#include "module/block_store.hpp"
#include "module/json_writer.hpp"
#include "module/row_columns.hpp"
#include "show/counts.hpp"
#include "show/item_views.hpp"
#include "show/json_lines.hpp"
#include "source/input_sequence.hpp"

namespace ast::viewer {

class Session final : private InputObserver {
public:
    // One path a line. Throws CannotOpen, and std::invalid_argument for options that make no sense.
    Session(std::string_view paths, std::string_view options);

    uint32_t read(uint32_t most_octets);
    const RowColumns &columns() const { return columns_; }

    void put_state(JsonWriter &out) const;
    void put_sources(JsonWriter &out) const;
    void put_reports(JsonWriter &out) const;
    void put_totals(JsonWriter &out);
    void put_sites(JsonWriter &out) const;

    // Each puts nothing, and is false, for what there is not.
    bool put_block(JsonWriter &out, uint32_t block);
    bool put_record(JsonWriter &out, uint32_t row);
    bool put_item(JsonWriter &out, uint32_t row, uint32_t item);
    bool put_fault_item(JsonWriter &out, uint32_t block, uint32_t item);
    bool put_answers(JsonWriter &out, uint32_t row);
    bool put_json(TextBuffer &out, uint32_t row);
    bool put_block_json(TextBuffer &out, uint32_t block);

    // Throws Mistake.
    void set_filter(std::string_view expression);
    bool filter_asks_position() const { return filter_.asks_position(); }
    const std::vector<uint8_t> &read_marks(uint32_t most_rows);
    const std::vector<uint8_t> &marks() const { return marks_; }

    // False for no place, or no source.
    bool set_site(uint32_t sac, uint32_t sic, const ast_place_t &place);
    bool forget_site(uint32_t sac, uint32_t sic);

private:
    struct Options;
    struct Walk;
    struct Told {
        std::string kind;
        std::string file;
        std::string place;
        std::string text;
        std::string cause;
        ast_recording_report_t facts; // whose texts are gone
        uint32_t block;
        bool has_block;
    };
    struct Cause {
        uint64_t count = 0;
        uint64_t octets = 0;
    };
    struct Row {
        DecodedBlock *decoded;
        uint32_t block;
        const ast_datarecord_t *record;
        uint64_t index;
    };

    Session(const Options &options);

    void opened(const std::string &name, const Input &input) override;
    void failed(const InputFailure &failure) override;
    void announced(const std::string &what) override;

    bool read_piece();
    void block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets);
    void tell(const Report &report, const std::string &file, bool has_block);
    uint16_t file_of(const Datagram &datagram) const;

    bool find(uint32_t row, Row &found);
    void put_head(JsonWriter &out, const ast_dataitem_t &item, const Reading &reading);
    void put_items(JsonWriter &out, const ast_datarecord_t &record);
    bool put_item(JsonWriter &out, const ast_datarecord_t &record, uint32_t item);
    void put_fault(JsonWriter &out, const Fault &fault);
    const ast_site_t *site_of(uint32_t sac, uint32_t sic) const;

    std::vector<std::string> names_;
    ReadOptions read_options_;
    InputSequence inputs_;
    Job job_;
    bool is_open_ = false; // an input
    bool has_ended_ = false;
    std::string error_;
    uint32_t error_code_ = 0;
    std::string framing_;
    uint64_t octets_read_ = 0;
    uint64_t file_octets_ = 0;
    uint64_t octets_new_ = 0; // of blocks, in this call

    Decoder decoder_;
    BlockStore store_;
    RowColumns columns_;
    std::vector<Told> reports_; // new ones
    std::map<std::pair<std::string, std::string>, Cause> causes_;
    recording::astdump::Counter counter_;
    recording::astdump::Tally tally_;
    std::array<recording::astdump::Counts, 256> counts_{};
    Losses losses_;
    SiteMemory sites_; // as they are known behind the last block

    StoredDecoder stored_{store_};
    StoredDecoder filtered_{store_};
    std::vector<ast_site_t> given_; // by the user, since
    Filter filter_;
    uint32_t next_filtered_ = 0; // block
    std::vector<uint8_t> marks_;

    Readings readings_;
    recording::astdump::ItemViews views_;
    std::string json_file_; // that lines are of
    std::unique_ptr<recording::astdump::Renderer> json_lines_;
};

} // namespace ast::viewer
