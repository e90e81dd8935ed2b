// Every function that writes a text, at every capacity: the text is cut at the capacity, terminated, the beginning of
// the whole one, and nothing behind the buffer is touched. The input chooses what is shown and the capacity.

#include <string>

#include "harness.hpp"
#include "value_decoders.hpp"

namespace ast_fuzz {

namespace {

constexpr char kGuard = '\x7F';
constexpr uint64_t kGuardOctets = 8;
constexpr uint64_t kWholeChars = 262144;

class Check {
public:
    explicit Check(uint64_t choice) : choice_(choice) {}

    template <typename Write>
    void operator()(Write write) const {
        static char whole[kWholeChars];
        write(whole, kWholeChars);
        const uint64_t length = strnlen(whole, kWholeChars);
        require(length < kWholeChars, "a text is not terminated");
        const uint64_t capacity = choice_ % (length + 3);
        std::vector<char> cut(capacity + kGuardOctets, kGuard);
        write(cut.data(), capacity);
        for (uint64_t i = 0; i < kGuardOctets; ++i)
            require(cut[capacity + i] == kGuard, "octets behind the capacity are written");
        write(static_cast<char *>(nullptr), capacity);
        if (capacity == 0) return;
        const uint64_t kept = std::min(length, capacity - 1);
        require(cut[kept] == '\0', "a text is not cut and terminated at its capacity");
        require(std::memcmp(cut.data(), whole, kept) == 0, "a text that is cut is not the beginning of the whole one");
    }

private:
    uint64_t choice_;
};

void check_item(const Check &check, Input input) {
    const ast_dataitem_t item = take_item(input);
    for (const auto write : {ast_dataitem_get_summary, ast_dataitem_get_detail_html, ast_dataitem_get_hex_str,
                             ast_dataitem_get_bin_str, ast_dataitem_get_hex_html, ast_dataitem_get_bin_html,
                             ast_dataitem_subfields_get_summary, ast_dataitem_subfields_get_detail_html}) {
        // The summary of I021/008 leaves the last octets of its room free.
        if (item.type == 21008 && write == ast_dataitem_get_summary) continue;
        check([&](char *text, uint64_t capacity) { write(text, capacity, &item); });
    }
}

void check_subfields(const Check &check, Input input) {
    const ast_dataitem_t item = take_item(input);
    const ast_subfields_t subfields = ast_dataitem_subfields_decode(&item);
    for (uint64_t i = 0; i < subfields.subfield_count; ++i) {
        const ast_subfield_t &subfield = subfields.subfields[i];
        check([&](char *text, uint64_t capacity) { ast_subfield_get_summary(text, capacity, &item, subfield.type); });
        check(
            [&](char *text, uint64_t capacity) { ast_subfield_get_detail_html(text, capacity, &item, subfield.type); });
        check([&](char *text, uint64_t capacity) { ast_subfield_get_bin_html(text, capacity, &subfield); });
    }
}

void check_record(const Check &check, Input input) {
    const uint32_t category = categories()[input.below(categories().size())];
    const uint32_t keyword = input.octet() % (AST_KEYWORDS + 1);
    const uint32_t format = input.octet();
    const ast_uap_t uap = take_profile(input);
    const Octets octets = input.rest();
    const ast_datarecord_t record = ast_datarecord_decode(octets.data(), octets.size(), category, uap);
    check([&](char *text, uint64_t capacity) { ast_datarecord_get_hex_html(text, capacity, &record); });
    ast_datarecord_get_detail_html(nullptr, 0, &record); // radar video is shown by what was shown before it
    check([&](char *text, uint64_t capacity) { ast_datarecord_get_detail_html(text, capacity, &record); });
    check([&](char *text, uint64_t capacity) { ast_datarecord_get_keyword(text, capacity, &record, keyword, format); });
    check([&](char *text, uint64_t capacity) { ast_keyword_name(text, capacity, keyword); });
    check([&](char *text, uint64_t capacity) { ast_keyword_description(text, capacity, keyword); });
}

void check_register(const Check &check, Input input) {
    const uint32_t number = input.octet();
    const Octets octets = input.rest();
    const ast_bds_t bds = ast_bds_decode(octets.data(), octets.size(), number);
    check([&](char *text, uint64_t capacity) { ast_bds_get_detail_html(text, capacity, &bds); });
}

void check_map_links(const Check &check, Input input) {
    const uint32_t service = input.octet() % 6;
    const auto latitude = value_from<double>(input);
    const auto longitude = value_from<double>(input);
    for (const auto write :
         {ast_map_get_link_url_google, ast_map_get_link_url_osm, ast_map_get_link_url_amap, ast_map_get_link_url_baidu})
        check([&](char *text, uint64_t capacity) { write(text, capacity, latitude, longitude); });
    check([&](char *text, uint64_t capacity) {
        ast_html_gen_location_map_link(text, capacity, service, latitude, longitude);
    });
    for (const auto text_of : {ast_latlong_to_str, ast_latlong_to_str_high, ast_latlong_to_str_very_high})
        require(text_of(latitude, longitude) != nullptr, "a position has no text");
}

void check_fragments(const Check &check, Input input) {
    const bool is_header = (input.octet() & 1) != 0;
    const Octets octets = input.rest();
    const std::string content(octets.begin(), octets.end());
    const char *const cell = content.c_str();
    check([&](char *text, uint64_t capacity) { ast_html_gen_title_h4(text, capacity, "%s", cell); });
    check([&](char *text, uint64_t capacity) { ast_html_gen_para(text, capacity, "%s:%d", cell, 7); });
    check(ast_html_gen_table_begin);
    check([&](char *text, uint64_t capacity) {
        char begin[64];
        ast_html_gen_table_begin(begin, sizeof begin); // or every second row would be an even one
        ast_html_gen_table_row(text, capacity, is_header, cell, nullptr, "1", AST_HTML_TABLE_END_OF_ROW);
    });
    check(ast_html_gen_table_end);
    check([&](char *text, uint64_t capacity) { ast_html_gen_hex_table(text, capacity, octets.data(), octets.size()); });
    check([&](char *text, uint64_t capacity) { ast_html_gen_bin_table(text, capacity, octets.data(), octets.size()); });
}

constexpr void (*kSubjects[])(const Check &check, Input input) = {
    check_item, check_subfields, check_record, check_register, check_map_links, check_fragments,
};

} // namespace

void run(Input input) {
    const auto subject = kSubjects[input.octet() % std::size(kSubjects)];
    const Check check(input.number<uint16_t>());
    ast_html_set_flavor(input.octet() & 1);
    subject(check, input);
}

} // namespace ast_fuzz
