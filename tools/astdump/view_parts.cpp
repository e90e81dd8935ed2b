#include "view_parts.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "text.hpp"

namespace astdump {

namespace {

constexpr std::string_view kTableEnd = "</table>";
constexpr size_t kShortestTag = 3;

class Reader {
public:
    explicit Reader(std::string_view html) : rest_(html) {}

    std::vector<ViewPart> read() {
        while (!rest_.empty())
            if (!tag()) text();
        std::erase_if(parts_,
                      [](const ViewPart &part) { return part.kind == ViewPart::Kind::paragraph && part.text.empty(); });
        return std::move(parts_);
    }

private:
    struct Tag {
        std::string_view start;
        void (Reader::*act)();
    };
    static const std::array<Tag, 16> kTags; // the most frequent first

    // Takes one tag, if there is one that the library writes.
    bool tag() {
        if (rest_.size() < kShortestTag || rest_.front() != '<') return false;
        const auto found = std::ranges::find_if(kTags, [&](const Tag &tag) {
            return tag.start[1] == rest_[1] && tag.start[2] == rest_[2] && rest_.starts_with(tag.start);
        });
        const size_t end = rest_.find('>');
        if (found == kTags.end() || end == std::string_view::npos) return false;
        attributes_ = rest_.substr(found->start.size(), end - found->start.size());
        rest_.remove_prefix(end + 1);
        if (found->act) (this->*found->act)();
        return true;
    }

    // Takes the text up to what may be the next tag.
    void text() {
        const std::string_view text = rest_.substr(0, rest_.find('<', 1));
        rest_.remove_prefix(text.size());
        if (target_) *target_ += printable(text);
    }

    void open(ViewPart::Kind kind) { target_ = &parts_.emplace_back(ViewPart{kind, {}, {}, {}}).text; }
    void title() { open(ViewPart::Kind::title); }
    void paragraph() { open(ViewPart::Kind::paragraph); }
    void close() { target_ = nullptr; }

    void detail_table() {
        open(ViewPart::Kind::table);
        close();
    }

    void other_table() { rest_.remove_prefix(std::min(rest_.find(kTableEnd), rest_.size())); }

    bool in_table() const { return !parts_.empty() && parts_.back().kind == ViewPart::Kind::table; }

    void row() {
        if (in_table()) parts_.back().rows.emplace_back();
    }

    // Header cells stand in the first row alone, which therefore is no data row.
    void header_cell() {
        if (!in_table()) return;
        parts_.back().rows.clear();
        target_ = &parts_.back().header.emplace_back();
    }

    void cell() {
        if (in_table() && !parts_.back().rows.empty()) target_ = &parts_.back().rows.back().emplace_back();
    }

    void link() { address_ = attributes_.substr(0, attributes_.find('"')); }

    void link_end() {
        if (target_) *target_ += ' ' + printable(address_);
    }

    std::string_view rest_;
    std::string_view attributes_; // of the last tag
    std::string_view address_;    // of the last link
    std::vector<ViewPart> parts_;
    std::string *target_ = nullptr; // what text belongs to
};

constexpr std::array<Reader::Tag, 16> Reader::kTags = {{
    {"<td>", &Reader::cell},
    {"</td>", &Reader::close},
    {"<tr", &Reader::row},
    {"</tr>", nullptr},
    {"<th>", &Reader::header_cell},
    {"</th>", &Reader::close},
    {"<table class=\"detail_table\"", &Reader::detail_table},
    {"<table class=\"", &Reader::other_table},
    {kTableEnd, nullptr},
    {"<br/>", nullptr},
    {"<h4>", &Reader::title},
    {"</h4>", &Reader::close},
    {"<p>", &Reader::paragraph},
    {"</p>", &Reader::close},
    {"<a href=\"", &Reader::link},
    {"</a>", &Reader::link_end},
}};

} // namespace

std::vector<ViewPart> read_view(std::string_view html) { return Reader(html).read(); }

} // namespace astdump
