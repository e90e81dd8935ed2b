#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/text.hpp"

namespace {

using ast_test::written;

constexpr struct {
    uint32_t service;
    const char *name;
    bool (*link)(char *, uint64_t, double, double);
    const char *scheme;
    const char *path;
} kServices[] = {
    {1, "Google Maps", ast_map_get_link_url_google, "https://", "/maps/place/10.000000,-20.500000"},
    {2, "OpenStreetMap", ast_map_get_link_url_osm, "http://", "/?mlat=10.000000&mlon=-20.500000"},
    {3, "AMap", ast_map_get_link_url_amap, "https://", "/marker?position=-20.500000,10.000000"},
    {4, "Baidu Map", ast_map_get_link_url_baidu, "https://",
     "/marker?location=10.000000,-20.500000&title=100000N0203000W&content=100000N0203000W"
     "&output=html&coord_type=wgs84&src="},
};

TEST(Map, LinksShowThePositionOnEachService) {
    for (const auto &c : kServices) {
        EXPECT_STREQ(ast_map_get_service_name(c.service), c.name);
        const std::string own =
            written([&](char *text, uint64_t capacity) { EXPECT_TRUE(c.link(text, capacity, 10, -20.5)); });
        EXPECT_EQ(own.find(c.scheme), 0U) << own;
        EXPECT_NE(own.find(c.path), std::string::npos) << own;
        EXPECT_EQ(own, written([&](char *text, uint64_t capacity) {
                      EXPECT_TRUE(ast_map_get_link_url(text, capacity, c.service, 10, -20.5));
                  }));
    }
}

TEST(Map, UnknownServicesHaveNoLink) {
    for (const uint32_t service : {0U, 5U, UINT32_MAX}) {
        char text[] = "untouched";
        EXPECT_FALSE(ast_map_get_link_url(text, sizeof text, service, 1, 2));
        EXPECT_STREQ(text, "untouched");
        EXPECT_STREQ(ast_map_get_service_name(service), "No Map");
    }
}

} // namespace
