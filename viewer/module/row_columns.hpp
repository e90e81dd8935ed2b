// What records say, in columns: viewer.h describes them.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "ask/answerer.hpp"
#include "module/viewer.h"

namespace ast::viewer {

using namespace recording;

class RowColumns {
public:
    void block(const DecodedBlock &decoded, uint32_t number, uint8_t state, uint16_t file);

    // Begins anew; what rows refer to is kept.
    void clear();

    struct View {
        const void *elements = nullptr;
        size_t count = 0;
    };
    View column(uint32_t which) const;

    uint32_t rows() const { return rows_; } // from the beginning on
    const std::string &texts() const { return texts_; }

    struct Source {
        uint8_t category;
        bool is_known;
        uint8_t sac;
        uint8_t sic;
    };
    const std::vector<Source> &sources() const { return sources_; }

private:
    void record(const DecodedBlock &decoded, const ast_datarecord_t &record, uint32_t block);
    void put_time(const DecodedBlock &decoded, const ast_datarecord_t &record, const ast_answers_t &answers);
    void put_time(double time_s, uint8_t kind);
    void put_position(const ast_answers_t &answers);
    void put_position(uint8_t kind, double first, double second);
    uint16_t source_of(uint32_t category, const ast_answers_t &answers);
    uint32_t text_of(const ast_answers_t &answers);

    Answerer answerer_;
    uint32_t rows_ = 0;
    uint32_t first_row_ = 0; // of those at hand

    std::vector<uint32_t> block_, callsign_, address_, track_, shapes_, block_row_;
    std::vector<uint16_t> source_, code_, flags_, block_file_, block_octets_;
    std::vector<uint8_t> time_kind_, position_kind_, type_, block_state_, block_category_;
    std::vector<double> time_;
    std::vector<int32_t> first_, second_;
    std::vector<float> level_, height_, speed_, angle_, rate_;

    std::vector<Source> sources_;
    std::unordered_map<uint32_t, uint16_t> source_places_;
    std::unordered_map<std::string, uint32_t> text_places_;
    std::string texts_; // new ones
};

} // namespace ast::viewer
