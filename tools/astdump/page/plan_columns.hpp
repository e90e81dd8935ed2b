// The records of a section of the page in columns, for its plan and its search.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "ask/answerer.hpp"

namespace ast::recording::astdump {

// Little-endian words, packed: how many blocks, rows, sources and words of shapes there are; the rows of each block;
// the columns below, one after the other; the sources, how their places are known, the latitudes and the longitudes of
// these; the shapes, as plan_shapes.hpp describes them; the texts, a line each. Each of these arrays stands in four
// planes, the low octets of all words first, which packs well. A row is a record that is shown.
class PlanColumns {
public:
    void block(const DecodedBlock &decoded);

    // Packed, for a page that unpacks by itself.
    std::string pack() const;

    void clear();

private:
    enum Column {
        source,   // its place among the sources
        time,     // in 1/128 s, with a TimeKind in bits 31 to 24
        position, // a PositionKind
        first,    // of the position: degrees × 10^7, those of an azimuth × 10^6, NM × 2^16
        second,
        callsign, // its place among the texts, from 1; 0 for none
        code,     // and all that follow: one more than the value, 0 for none
        address,
        track,
        level, // in 25 ft, with 2^15 added
        columns
    };
    enum TimeKind : uint32_t { no_time, own_time, truncated_time, received };
    enum PositionKind : uint32_t { no_position, wgs84, polar, cartesian };

    void record(const DecodedBlock &decoded, const ast_datarecord_t &record);
    uint32_t source_of(uint32_t category, const ast_answers_t &answers);
    uint32_t time_of(const DecodedBlock &decoded, const ast_datarecord_t &record, const ast_answers_t &answers) const;
    uint32_t text_of(const std::string &text);
    void put_sites(std::string &octets) const;
    void put_position(const ast_datarecord_t &record, const ast_answers_t &answers);
    void put_position(PositionKind kind, double first_value, double second_value);
    void put(Column column, uint32_t word) { rows_[column].push_back(word); }

    Answerer answerer_;
    const SiteMemory *sites_ = nullptr; // as they are known behind the last block
    std::vector<uint32_t> blocks_;
    std::vector<uint32_t> rows_[columns];
    std::vector<uint32_t> sources_; // category × 2^16 + SAC × 256 + SIC, and 2^24 where there is a source
    std::unordered_map<uint32_t, uint32_t> source_places_;
    std::vector<uint32_t> shapes_;
    std::unordered_map<std::string, uint32_t> text_places_;
    std::string texts_;
};

} // namespace ast::recording::astdump
