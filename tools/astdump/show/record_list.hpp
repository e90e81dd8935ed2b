// The list: a line per record with the common quantities in columns.
#pragma once

#include <mutex>
#include <string>

#include "show/list_layout.hpp"
#include "show/sink.hpp"
#include "show/terminal.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

// Lines are laid out where they are rendered, by the layout that the lines before them will most likely have led to.
// Those of another layout are laid out again as they are taken, so that what is written does not depend on threads and
// chunks. For that they hold all values but those that there is no room for in any case, however wide this makes them.
//
// The first lines of a file are held back: they decide which columns there are, and how wide. A column that is missed
// later joins below a header of its own, and one grows when a value takes more.
class RecordList : public Sink {
public:
    struct Form {
        size_t columns; // that lines may take
        bool color;
        bool name_files; // above their lines
    };
    RecordList(Output &out, const Form &form);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override { return decoded.shown.count(); }
    void file(const std::string &name) override;
    void live() override;
    void take(std::string_view rendered) override;
    void flush() override;
    void finish(uint64_t) override { flush(); }

    // What is to be taken next will most likely have this layout.
    class Expected {
    public:
        ListColumns get() const {
            const std::lock_guard lock(mutex_);
            return columns_;
        }
        void set(const ListColumns &columns) {
            const std::lock_guard lock(mutex_);
            columns_ = columns;
        }

    private:
        mutable std::mutex mutex_;
        ListColumns columns_{usual_list_widths()};
    };

private:
    void lines(std::string_view lines);
    void again(std::string_view &lines);
    void hold(std::string_view &lines);
    void decide();
    void header();

    Output &out_;
    Style style_;
    bool name_files_;
    bool written_ = false; // lines of the file before

    ListLayout given_; // of what is taken
    ListLayout layout_;
    ListWidths headed_{}; // the layout of the last header
    Expected expected_;

    bool is_decided_ = false;
    TextBuffer held_; // as it was taken
    size_t held_lines_ = 0;
    ListWidths widest_{}; // of their values
    TextBuffer text_;
};

} // namespace ast::recording::astdump
