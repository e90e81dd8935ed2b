/* Lookups and map links: what an application can tell the library about sites, sensors and countries, which the detail
 * views show.
 *
 * A lookup fills a zeroed result that the library hands it and may use at most AST_LOOKUP_MAX_ENTRIES entries of a
 * list; a count above that is taken as that. Texts belong to the application, stay unchanged until the view that asked
 * has returned, and may be null, which is shown as an empty text. Reserved members are the application's and never
 * read. */
#ifndef AST_LOOKUPS_H
#define AST_LOOKUPS_H

#include "base.h"

AST_BEGIN_DECLARATIONS

#define AST_LOOKUP_MAX_ENTRIES 10

/** One country or region to which a system area code is allocated. */
typedef struct {
    bool valid;
    uint64_t reserved_1;
    const char *region; /* part of the world that it is in */
    uint64_t reserved_2;
    const char *country_code; /* shown in brackets behind the country */
    const char *country;      /* name of the country */
} ast_sac_info_t;

typedef struct {
    uint64_t count;                                 /* how many of the entries are filled */
    ast_sac_info_t entries[AST_LOOKUP_MAX_ENTRIES]; /* those of them that are valid are shown */
} ast_sac_info_list_t;

/** One sensor or system that sends under a SAC and SIC. */
typedef struct {
    bool valid;
    uint64_t reserved;
    const char *system;       /* name of the sensor or system */
    const char *country_code; /* shown in brackets behind the country */
    const char *country;      /* where it stands */
    const char *type;         /* what it is, such as "Mode S radar" */
    const char *manufacturer; /* who made it */
    const char *model;        /* of its maker */
    const char *description;  /* anything else */
} ast_sensor_t;

typedef struct {
    uint64_t count;                               /* how many of the entries are filled */
    ast_sensor_t entries[AST_LOOKUP_MAX_ENTRIES]; /* those of them that are valid are shown */
} ast_sensor_list_t;

/** The country to which a 24-bit ICAO aircraft address is allocated. */
typedef struct {
    bool found;       /* the address is allocated to a country that is known */
    const char *code; /* of the country, which the flag lookup is given */
    uint64_t reserved_1;
    uint64_t reserved_2;
    const char *name; /* of the country */
} ast_country_t;

struct ast_dataitem;

typedef void ast_sac_get_info_t(ast_sac_info_list_t *result, uint32_t sac);
typedef void ast_sacsic_get_sensor_t(ast_sensor_list_t *result, uint32_t sac, uint32_t sic);
typedef void ast_icao_addr_get_country_t(ast_country_t *result, uint32_t address, const struct ast_dataitem *item);
typedef const void *ast_get_national_flag_t(const char *country_code);

/** Each registers one lookup in place of the last; null, as at start, switches it off. */
AST_API void ast_reg_callback_sac_get_info(ast_sac_get_info_t *lookup);
AST_API void ast_reg_callback_sacsic_get_sensor(ast_sacsic_get_sensor_t *lookup);
AST_API void ast_reg_callback_icao_addr_get_country(ast_icao_addr_get_country_t *lookup);

/** The flag lookup is told the code of each country found for an address; what it returns is not used. */
AST_API void ast_reg_callback_get_national_flag(ast_get_national_flag_t *lookup);

/* Map services. */
#define AST_MAP_GOOGLE UINT32_C(1)
#define AST_MAP_OSM UINT32_C(2)
#define AST_MAP_AMAP UINT32_C(3)
#define AST_MAP_BAIDU UINT32_C(4)

/** The display name of a map service, "No Map" for any other number. Constant. */
AST_API const char *ast_map_get_service_name(uint32_t service);

/** Writes a link that shows a WGS-84 position, in degrees, on one service's map. Always returns true. */
AST_API bool ast_map_get_link_url_google(char *text, uint64_t capacity, double latitude, double longitude);
AST_API bool ast_map_get_link_url_osm(char *text, uint64_t capacity, double latitude, double longitude);
AST_API bool ast_map_get_link_url_amap(char *text, uint64_t capacity, double latitude, double longitude);
AST_API bool ast_map_get_link_url_baidu(char *text, uint64_t capacity, double latitude, double longitude);

/** The same for a service by number. Returns false, and leaves the text untouched, for any number but 1 to 4. */
AST_API bool ast_map_get_link_url(char *text, uint64_t capacity, uint32_t service, double latitude, double longitude);

AST_END_DECLARATIONS

#endif
