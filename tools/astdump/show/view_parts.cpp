#include "show/view_parts.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace ast::recording::astdump {

namespace {

constexpr std::string_view kCellEnd = "</td>";
constexpr std::string_view kTableEnd = "</table>";

// Where the next table ends, these characters are found fastest: few of a table are an a.
constexpr std::string_view kEndOfTableEnd = "able>";

using Characters = std::array<char, sizeof(uint64_t)>;

// The first characters of a text as one number; zeros behind its end.
uint64_t head_of(std::string_view text) {
    Characters head{};
    if (text.size() >= head.size())
        std::memcpy(head.data(), text.data(), head.size());
    else
        std::ranges::copy(text, head.begin());
    return std::bit_cast<uint64_t>(head);
}

} // namespace

size_t rest_of_table(std::string_view html) {
    const size_t end = html.find(kEndOfTableEnd);
    return end == std::string_view::npos ? html.size() : end + kEndOfTableEnd.size();
}

std::span<const ViewPart> ViewReader::read(std::string_view html) {
    count_ = 0;
    joined_.clear();
    left_out_.clear();
    links_.clear();
    target_ = nullptr;
    rest_ = html;
    while (!rest_.empty())
        if (rest_.front() != '<' || !tag()) text();
    const auto end = parts_.begin() + static_cast<std::ptrdiff_t>(count_);
    const auto empty = std::stable_partition(parts_.begin(), end, [](const ViewPart &part) {
        return part.kind != ViewPart::Kind::paragraph || !part.text.empty();
    });
    return {parts_.begin(), empty};
}

// Takes the tag that begins here, if it is one that the library writes.
bool ViewReader::tag() {
    const uint64_t head = head_of(rest_);
    for (const Tag &tag : kTags) {
        if ((head & tag.mask) != tag.head) continue;
        if (tag.start.size() > sizeof head && !rest_.starts_with(tag.start)) continue;
        size_t end = tag.start.size() - 1;
        if (!tag.is_whole) {
            end = rest_.find('>', end);
            if (end == std::string_view::npos) return false;
            attributes_ = rest_.substr(0, end).substr(std::min(end, tag.start.size()));
        }
        rest_.remove_prefix(end + 1);
        if (tag.act) (this->*tag.act)();
        return true;
    }
    return false;
}

// Takes the text up to what may be the next tag.
void ViewReader::text() {
    const std::string_view text = rest_.substr(0, rest_.find('<', 1));
    rest_.remove_prefix(text.size());
    append(text);
}

void ViewReader::append(std::string_view piece) {
    if (!target_) return;
    if (target_->empty())
        *target_ = piece;
    else
        *target_ = joined_.emplace_back(*target_).append(piece);
}

ViewPart &ViewReader::open(ViewPart::Kind kind) {
    if (count_ == parts_.size()) parts_.emplace_back();
    ViewPart &part = parts_[count_++];
    part.kind = kind;
    part.text = {};
    part.cells.clear();
    part.row_begins.clear();
    part.is_headed = false;
    return part;
}

void ViewReader::title() { target_ = &open(ViewPart::Kind::title).text; }
void ViewReader::paragraph() { target_ = &open(ViewPart::Kind::paragraph).text; }
void ViewReader::close() { target_ = nullptr; }

void ViewReader::detail_table() {
    open(ViewPart::Kind::table);
    close();
}

void ViewReader::other_table() {
    left_out_.push_back(rest_.substr(0, rest_of_table(rest_)));
    rest_.remove_prefix(left_out_.back().size());
}

bool ViewReader::in_table() const { return count_ != 0 && parts_[count_ - 1].kind == ViewPart::Kind::table; }

void ViewReader::row() {
    if (!in_table()) return;
    ViewPart &table = parts_[count_ - 1];
    table.row_begins.push_back(table.cells.size());
}

void ViewReader::header_cell() {
    if (in_table()) parts_[count_ - 1].is_headed = true;
    cell();
}

// Most cells are one text.
void ViewReader::cell() {
    if (!in_table() || parts_[count_ - 1].rows() == 0) return;
    target_ = &parts_[count_ - 1].cells.emplace_back();
    const size_t end = rest_.find('<');
    if (end == std::string_view::npos || !rest_.substr(end).starts_with(kCellEnd)) return;
    *target_ = rest_.substr(0, end);
    rest_.remove_prefix(end + kCellEnd.size());
    close();
}

void ViewReader::link() { address_ = attributes_.substr(0, attributes_.find('"')); }

void ViewReader::link_end() {
    append(" ");
    append(address_);
    if (target_) links_.push_back({target_->data(), address_});
}

std::string_view ViewReader::address_in(std::string_view text) const {
    const auto link = std::ranges::find(links_, text.data(), &Link::text);
    return link == links_.end() ? std::string_view() : link->address;
}

constexpr ViewReader::Tag::Tag(std::string_view tag, void (ViewReader::*action)())
    : start(tag), act(action), is_whole(tag.back() == '>') {
    Characters head_characters{};
    Characters mask_characters{};
    for (size_t i = 0; i < tag.size() && i < head_characters.size(); ++i) {
        head_characters[i] = tag[i];
        mask_characters[i] = static_cast<char>(-1);
    }
    head = std::bit_cast<uint64_t>(head_characters);
    mask = std::bit_cast<uint64_t>(mask_characters);
}

// The most frequent first.
const std::array<ViewReader::Tag, 16> ViewReader::kTags = {{
    {"<td>", &ViewReader::cell},
    {kCellEnd, &ViewReader::close},
    {"<tr", &ViewReader::row},
    {"</tr>", nullptr},
    {"<th>", &ViewReader::header_cell},
    {"</th>", &ViewReader::close},
    {"<table class=\"detail_table\"", &ViewReader::detail_table},
    {"<table class=\"", &ViewReader::other_table},
    {kTableEnd, nullptr},
    {"<br/>", nullptr},
    {"<h4>", &ViewReader::title},
    {"</h4>", &ViewReader::close},
    {"<p>", &ViewReader::paragraph},
    {"</p>", &ViewReader::close},
    {"<a href=\"", &ViewReader::link},
    {"</a>", &ViewReader::link_end},
}};

} // namespace ast::recording::astdump
