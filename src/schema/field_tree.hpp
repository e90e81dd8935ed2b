// The fields of an item with their paths.
#pragma once

#include <cstring>

#include "schema/walk.hpp"

namespace ast::schema {

// "I048/250[1]/MCP_ALT", put together on the way down and taken back on the way up.
class Path {
public:
    const char *text() const { return text_; }
    size_t length() const { return length_; }
    Path() { text_[0] = '\0'; }
    void append(std::string_view piece) {
        if (piece.empty()) return; // it may be nowhere
        const size_t room = sizeof text_ - 1 - length_;
        const size_t chars = piece.size() < room ? piece.size() : room;
        std::memcpy(text_ + length_, piece.data(), chars);
        cut(length_ + chars);
    }
    void append_step(std::string_view name) {
        if (name.empty()) return;
        if (length_ != 0) append("/");
        append(name);
    }
    // The name of a field, copied by a few moves where there is room.
    void append_step(const Field &field) {
        if (!field.is_named()) return;
        if (length_ == 0 || length_ + 1 + sizeof field.key >= sizeof text_) return append_step(field.name());
        std::memcpy(text_ + length_, field.key, sizeof field.key);
        text_[length_] = '/'; // in place of its quote
        cut(length_ + 1 + field.name().size());
    }
    void cut(size_t length) {
        length_ = length;
        text_[length_] = '\0';
    }

private:
    char text_[128];
    size_t length_ = 0;
};

// What has no line of its own: its members are those of what it stands in.
inline bool is_inside(const Field &field) {
    return field.kind == Kind::Part || field.kind == Kind::When || field.kind == Kind::None ||
           field.kind == Kind::Status;
}

constexpr uint32_t kVaries = AST_FIELD_VARIES;

struct Place {
    uint32_t bit = kVaries; // where a field begins, in items or registers of its kind
    uint32_t needed = 0;    // the bits that these must have
};

// All fields of an item or register as they are told to the world: visit(field, path, place).
template <typename Visit>
class FieldTree {
public:
    explicit FieldTree(Visit visit) : visit_(visit) {}

    void field(const Field *field, std::string_view first_step = {}) {
        this->field(field, first_step, {0, field->bits});
    }

private:
    void field(const Field *field, std::string_view first_step, Place place) {
        const size_t before = path_.length();
        path_.append(first_step);
        if (first_step.empty() && field->kind != Kind::When) path_.append_step(*field);
        const bool has_content = field->kind == Kind::Explicit && field->rows != 0; // which has its name, too
        if (!is_inside(*field) && !has_content && !is_transparent_inside(*field, before))
            visit_(*field, path_.text(), place);
        if (has_content) path_.cut(before);
        if (is_list(*field)) path_.append("[]");
        if (field->kind == Kind::Either) path_.cut(before);
        members(field, has_content ? first_step : std::string_view(), place);
        path_.cut(before);
    }

    // Those of a group, and of the first part of what is extended, stand where they stand in every item, but for one
    // that a status bit tells of.
    void members(const Field *parent, std::string_view first_step, Place place) {
        const bool is_extended = parent->kind == Kind::Extended;
        const bool is_fixed = is_extended || parent->kind == Kind::Group || parent->kind == Kind::Part;
        Place next = is_fixed ? place : Place{};
        bool has_status = false;
        for (const Field *member = parent + 1; member != behind(parent); member = behind(member)) {
            if (is_extended && next.bit != kVaries) next.needed = next.bit + member->bits + fx_bits(*member);
            field(member, first_step, has_status ? Place{} : next);
            has_status = member->kind == Kind::Status;
            if (is_extended) next = {};
            if (next.bit != kVaries) next.bit += member->bits;
        }
    }

    static bool is_transparent_inside(const Field &field, size_t level) { return level != 0 && is_transparent(field); }

    Visit visit_;
    Path path_;
};

} // namespace ast::schema
