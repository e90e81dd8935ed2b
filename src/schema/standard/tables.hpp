// The table of each edition, which has a source of its own.
#pragma once

#include "schema/write.hpp"

namespace ast::schema {

template <const auto &kItems>
consteval Edition edition(uint32_t category, const char *number, const char *title, Profile profile = {},
                          Profile other_profile = {}) {
    constexpr auto &items = kItems;
    constexpr auto count = static_cast<uint32_t>(std::size(kItems));
    Edition edition{.category = category,
                    .number = number,
                    .title = title,
                    .items = items,
                    .item_count = count,
                    .writers = kWritersOf<kItems>.data(),
                    .judgements = kJudgementsOf<kItems>.data(),
                    .profile = profile,
                    .other_profile = other_profile};
    for (size_t i = 0; i < count; ++i) {
        must(i == 0 || items[i - 1].number < items[i].number);
        edition.places[items[i].number] = static_cast<uint8_t>(i + 1);
    }
    for (const Profile &each : {profile, other_profile})
        for (uint32_t frn = 1; frn <= each.count; ++frn)
            must(each.at(frn) == kSpare || edition.places[each.at(frn)] != 0);
    return edition;
}

extern const Edition kCat001;
extern const Edition kCat002;
extern const Edition kCat004;
extern const Edition kCat007;
extern const Edition kCat008;
extern const Edition kCat009;
extern const Edition kCat010;
extern const Edition kCat011;
extern const Edition kCat015;
extern const Edition kCat016;
extern const Edition kCat017;
extern const Edition kCat018;
extern const Edition kCat019;
extern const Edition kCat020;
extern const Edition kCat021;
extern const Edition kCat021Ed023;
extern const Edition kCat021Ed026;
extern const Edition kCat021Ed21;
extern const Edition kCat021Ed24;
extern const Edition kCat023;
extern const Edition kCat025;
extern const Edition kCat032;
extern const Edition kCat034;
extern const Edition kCat048;
extern const Edition kCat062;
extern const Edition kCat063;
extern const Edition kCat065;
extern const Edition kCat150;
extern const Edition kCat205;
extern const Edition kCat240;
extern const Edition kCat247;

} // namespace ast::schema
