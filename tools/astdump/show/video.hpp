// Radar video, category 240: what the views say of a block of cells follows from items before it, whose views leave the
// resolution, start range and cell duration in variables of the process.
#pragma once

#include <ast.h>
#include <mutex>

namespace ast::recording::astdump {

// Whether the texts of an item depend on, or decide, those of its neighbours, and cannot be kept for the same octets.
inline bool is_video(const ast_dataitem_t &item) { return item.type / 1000 == 240; }

// A turn at showing a block of a category. Blocks of video wait for each other, and each starts without knowledge of
// those before it, so that its texts do not depend on the threads.
class VideoTurn {
public:
    explicit VideoTurn(uint32_t category) {
        if (category != 240) return;
        static std::mutex variables;
        lock_ = std::unique_lock(variables);
        g_video_resolution = 0;
        g_start_range = 0;
        g_cell_duration = 0;
    }

private:
    std::unique_lock<std::mutex> lock_;
};

} // namespace ast::recording::astdump
