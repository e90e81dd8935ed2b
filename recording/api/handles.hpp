// What programs hold.
#pragma once

#include <ast_recording.h>
#include <memory>

#include "api/recording.hpp"
#include "ask/filter.hpp"

// Streams of columns know of their recording, and notice when it is closed.
struct ast_recording {
    std::shared_ptr<ast::recording::Recording> recording;
};

struct ast_filter {
    ast::recording::Filter filter;
};
