// Learning what editions data sources send, and where they stand, before their recording is read.
#pragma once

#include <span>

#include "block/block_learner.hpp"
#include "source/read_options.hpp"

namespace ast::recording {

class Interruption;

// What the beginnings of inputs tell. Editions are frozen then, and sites where this was all of the inputs; nothing but
// what is given is known as yet of what cannot be read twice, such as a pipe.
Known look_through(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption);

} // namespace ast::recording
