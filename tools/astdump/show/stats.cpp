#include "show/stats.hpp"

#include <cstdio>

#include "show/item_values.hpp"

namespace ast::recording::astdump {

void Stats::count(const Tally &tally) {
    for (const auto &[category, counts] : tally.categories) counts_[category] += counts;
    losses_ += tally.losses;
    for (const auto &[type, count] : tally.items) items_[type] += count;
}

// Where nothing could be opened there is nothing to count.
void Stats::finish(uint64_t) {
    if (files_.empty()) return;
    categories();
    items();
    profiles();
    doubts();
    files();
    out_.write(text_.text());
}

void Stats::categories() {
    char heading[96];
    std::snprintf(heading, sizeof heading, "%-8s %10s %10s %11s %10s %12s %13s", "Category", "Blocks", "Damaged",
                  "Unsupported", "Records", "Items", "Octets");
    headline(heading);
    Counts total;
    for (unsigned category = 0; category < counts_.size(); ++category) {
        if (counts_[category].blocks == 0) continue;
        char title[16];
        std::snprintf(title, sizeof title, "%03u", category);
        row(title, counts_[category]);
        total += counts_[category];
    }
    row("all", total);
    if (const std::string foreign = losses_.foreign_text(); !foreign.empty())
        text_.put("\nNot ASTERIX: " + foreign + '\n');
}

void Stats::row(const char *title, const Counts &counts) {
    const bool fault = counts.damaged > 0;
    text_.left(title, 8);
    text_.put(' ');
    text_.number(counts.blocks, 10);
    text_.put(' ');
    if (fault) text_.put(style_.on(Color::fault));
    text_.number(counts.damaged, 10);
    if (fault) text_.put(style_.off());
    text_.put(' ');
    text_.number(counts.unsupported, 11);
    text_.put(' ');
    text_.number(counts.records, 10);
    text_.put(' ');
    text_.number(counts.items, 12);
    text_.put(' ');
    text_.number(counts.octets, 13);
    text_.put('\n');
}

void Stats::items() {
    bool is_headed = false;
    items_.each([&](ast_dataitem_type_t type, uint64_t count) {
        if (count == 0) return;
        if (!std::exchange(is_headed, true)) {
            text_.put('\n');
            headline("Item          Count  Name");
        }
        item(type, count);
    });
}

void Stats::profiles() {
    bool is_headed = false;
    for (unsigned category = 0; category < counts_.size(); ++category)
        for (const auto &[profile, blocks] : counts_[category].profiles) {
            if (!std::exchange(is_headed, true)) {
                text_.put('\n');
                headline("Profile         Edition  Category      Blocks");
            }
            this->profile(category, profile, blocks);
        }
}

void Stats::profile(unsigned category, const Profile &profile, uint64_t blocks) {
    text_.left(profile.name, 14);
    text_.put("  ");
    text_.left(*profile.edition ? profile.edition : "-", 7);
    text_.put("  ");
    text_.number(category, 3, '0');
    text_.number(blocks, 17);
    if (profile.ambiguous) text_.put("  ambiguous: others fit as well");
    text_.put('\n');
}

void Stats::doubts() {
    if (doubts_.empty()) return;
    text_.put("\nProbably another edition or another format:\n");
    headline("Source   Category    Records Implausible  File");
    for (const auto &[source, judgement, file] : doubts_) {
        const std::string name = source.source_text();
        text_.left(name.empty() ? "-" : name, 9);
        text_.number(source.category, 3, '0');
        text_.number(judgement.records, 16);
        text_.number(judgement.implausible, 12);
        text_.put("  ");
        text_.put(files_[file].name);
        text_.put('\n');
    }
}

void Stats::files() {
    if (files_.empty()) return;
    text_.put('\n');
    headline("Framing         File");
    for (const File &file : files_) {
        text_.left(file.framing, 14);
        text_.put("  ");
        text_.put(file.name);
        text_.put('\n');
    }
}

void Stats::headline(std::string_view text) {
    text_.put(style_.on(Color::heading));
    text_.put(text);
    text_.put(style_.off());
    text_.put('\n');
}

void Stats::item(ast_dataitem_type_t type, uint64_t count) {
    text_.put(style_.on(Color::item));
    text_.left(ast_dataitem_type_to_str(type), 8);
    text_.put(style_.off());
    text_.put(' ');
    text_.number(count, 10);
    text_.put("  ");
    text_.put(item_name(type, AST_UAP_PUBLISHED));
    text_.put('\n');
}

} // namespace ast::recording::astdump
