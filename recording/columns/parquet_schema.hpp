// How Parquet describes columns.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "columns/column_head.hpp"
#include "columns/thrift.hpp"

namespace ast::recording {

// A column without children, with the names on the way to it.
struct ParquetLeaf {
    int32_t type;
    std::vector<std::string> path;
};

// In the order of the columns.
std::vector<ParquetLeaf> parquet_leaves(std::span<const ColumnHead> heads);

// The tree of all columns, as a field of a struct.
void put_parquet_schema(Thrift &out, int16_t id, std::span<const ColumnHead> heads);

// What is told of columns beside their types, twice: as Arrow's libraries have it, and as JSON.
void put_parquet_description(Thrift &out, int16_t id, std::span<const ColumnHead> heads);

} // namespace ast::recording
