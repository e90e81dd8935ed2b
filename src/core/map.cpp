// Links that show a position on a public web map.

#include "core/text.hpp"

namespace {

using namespace ast;

constexpr char kBaiduApplication[] = "ast.viewer";

using LinkBuilder = bool (*)(char *text, uint64_t capacity, double latitude, double longitude);

struct MapService {
    const char *name;
    LinkBuilder link;
};

// In the order of their numbers, from 1.
constexpr MapService kServices[] = {
    {"Google Maps", ast_map_get_link_url_google},
    {"OpenStreetMap", ast_map_get_link_url_osm},
    {"AMap", ast_map_get_link_url_amap},
    {"Baidu Map", ast_map_get_link_url_baidu},
};

const MapService *find_service(uint32_t number) {
    return number >= AST_MAP_GOOGLE && number <= AST_MAP_BAIDU ? &kServices[number - 1] : nullptr;
}

} // namespace

const char *ast_map_get_service_name(uint32_t service) {
    const MapService *const found = find_service(service);
    return found ? found->name : "No Map";
}

bool ast_map_get_link_url_google(char *text, uint64_t capacity, double latitude, double longitude) {
    TextWriter(text, capacity).print("https://www.google.com/maps/place/%f,%f", latitude, longitude);
    return true;
}

bool ast_map_get_link_url_osm(char *text, uint64_t capacity, double latitude, double longitude) {
    TextWriter(text, capacity).print("http://www.openstreetmap.org/?mlat=%f&mlon=%f", latitude, longitude);
    return true;
}

// This service takes the longitude first.
bool ast_map_get_link_url_amap(char *text, uint64_t capacity, double latitude, double longitude) {
    TextWriter(text, capacity).print("https://uri.amap.com/marker?position=%f,%f", longitude, latitude);
    return true;
}

bool ast_map_get_link_url_baidu(char *text, uint64_t capacity, double latitude, double longitude) {
    const char *const position = ast_latlong_to_str(latitude, longitude);
    TextWriter(text, capacity)
        .print(
            "https://api.map.baidu.com/marker?location=%f,%f&title=%s&content=%s&output=html&coord_type=wgs84&src=%s",
            latitude, longitude, position, position, kBaiduApplication);
    return true;
}

bool ast_map_get_link_url(char *text, uint64_t capacity, uint32_t service, double latitude, double longitude) {
    const MapService *const found = find_service(service);
    return found && found->link(text, capacity, latitude, longitude);
}
