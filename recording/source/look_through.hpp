// Learning what editions data sources send before their recording is read.
#pragma once

#include <span>

#include "block/edition_memory.hpp"
#include "source/read_options.hpp"

namespace ast::recording {

class Interruption;

// What the beginnings of inputs tell, frozen; nothing is known as yet of what cannot be read twice, such as a pipe.
EditionMemory look_through(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption);

} // namespace ast::recording
