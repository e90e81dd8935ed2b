/* The common quantities of a record, whatever its category; keywords to show and filter by. */
#ifndef AST_QUERIES_H
#define AST_QUERIES_H

#include "values.h"

AST_BEGIN_DECLARATIONS

/** A number in the unit that its accessor states. */
typedef struct {
    bool valid;
    double value; /* 0 when not valid, but -1 in an ast_heading_t */
} ast_quantity_t;

/** A Mode 3/A code and what is known of it. */
typedef struct {
    bool valid;
    uint32_t code;      /* 12 bits, shown as four octal digits */
    bool not_validated; /* the code was not received alike more than once; some accessors leave it false */
    bool garbled;       /* replies overlapped */
    bool smoothed;      /* by a tracker, or not extracted in the last scan */
} ast_squawk_t;

typedef struct {
    bool valid;
    uint32_t address; /* 24 bits */
} ast_icao_address_t;

/** A WGS-84 position. */
typedef struct {
    bool valid;
    double latitude_deg;  /* north positive */
    double longitude_deg; /* east positive */
} ast_coordinate_t;

/** A position as the sensor measured it: range, and azimuth clockwise from north. */
typedef struct {
    bool valid;
    double rho_nm;    /* 0 and up */
    double theta_deg; /* 0 to below 360 */
} ast_polar_coordinate_t;

/** Where an aircraft points and where it goes, in degrees. Valid when either is. */
typedef struct {
    bool valid;
    ast_quantity_t magnetic; /* magnetic heading */
    ast_quantity_t track;    /* true track angle */
} ast_heading_t;

typedef struct {
    bool valid;
    double vx_m_s; /* along x, which is east as a rule */
    double vy_m_s; /* along y, which is north as a rule */
} ast_cartesian_velocity_t;

/* Message types. */
#define AST_MSGTYPE_NORTH UINT32_C(1)
#define AST_MSGTYPE_SECTOR UINT32_C(2)
#define AST_MSGTYPE_PLOT UINT32_C(3)
#define AST_MSGTYPE_TRACK UINT32_C(4)
#define AST_MSGTYPE_ADSB UINT32_C(5)
#define AST_MSGTYPE_MLAT UINT32_C(6)
#define AST_MSGTYPE_VIDEO UINT32_C(7)
#define AST_MSGTYPE_SURFACE UINT32_C(8)
#define AST_MSGTYPE_MEASUREMENT_PLOT UINT32_C(9)
#define AST_MSGTYPE_MEASUREMENT_TRACK UINT32_C(10)
#define AST_MSGTYPE_SENSOR_CENTRIC_PLOT UINT32_C(11)
#define AST_MSGTYPE_SENSOR_CENTRIC_TRACK UINT32_C(12)
#define AST_MSGTYPE_TRACK_END UINT32_C(13)

/** The accessors of one category. A null slot means that its records do not carry the quantity. */
typedef struct {
    /* as the functions below of the same names; get_coordinate is asked by ast_datarecord_get_wgs84coord */
    ast_sac_sic_t (*get_sacsic)(const ast_datarecord_t *record);
    ast_time_of_day_t (*get_timeofday)(const ast_datarecord_t *record);
    ast_uint_value_t (*get_msgtype)(const ast_datarecord_t *record);
    ast_uint_value_t (*get_tracknum)(const ast_datarecord_t *record);
    ast_squawk_t (*get_squawk)(const ast_datarecord_t *record);
    ast_aircraft_id_t (*get_callsign)(const ast_datarecord_t *record);
    ast_icao_address_t (*get_icaoaddr)(const ast_datarecord_t *record);
    ast_coordinate_t (*get_coordinate)(const ast_datarecord_t *record);
    ast_quantity_t (*get_flightlevel)(const ast_datarecord_t *record);
    ast_quantity_t (*get_selaltitude)(const ast_datarecord_t *record);
    ast_polar_coordinate_t (*get_polarcoord)(const ast_datarecord_t *record);
    ast_heading_t (*get_heading)(const ast_datarecord_t *record);
    ast_quantity_t (*get_speed)(const ast_datarecord_t *record);
    ast_cartesian_velocity_t (*get_cartesianvel)(const ast_datarecord_t *record);
    ast_quantity_t (*get_vrate)(const ast_datarecord_t *record);
} ast_datarecord_func_t;

/** The accessors of a category; all null for one without. */
AST_API ast_datarecord_func_t ast_datarecord_get_func(uint32_t category);

/* Each asks a record for one quantity. What a record that is not valid, or a category without the accessor, gives is
 * said with each; what a record that lacks the item gives is the category's accessor's to say. */

/** Data source. SAC and SIC 0xFFFFFFFF when not valid. */
AST_API ast_sac_sic_t ast_datarecord_get_sacsic(const ast_datarecord_t *record);

/** Time of day. All zero when not valid. */
AST_API ast_time_of_day_t ast_datarecord_get_timeofday(const ast_datarecord_t *record);

/** Message type, one of AST_MSGTYPE_... or 0. */
AST_API uint32_t ast_datarecord_get_msgtype(const ast_datarecord_t *record);

/** Track number. Value 0xFFFFFFFF when not valid. */
AST_API ast_uint_value_t ast_datarecord_get_tracknum(const ast_datarecord_t *record);

/** Mode 3/A code. Code 0xFFFFFFFF when not valid. */
AST_API ast_squawk_t ast_datarecord_get_squawk(const ast_datarecord_t *record);

/** Callsign, up to its first blank. All zero when not valid. */
AST_API ast_aircraft_id_t ast_datarecord_get_callsign(const ast_datarecord_t *record);

/** ICAO aircraft address. Address 0xFFFFFFFF when not valid. */
AST_API ast_icao_address_t ast_datarecord_get_icaoaddr(const ast_datarecord_t *record);

/** WGS-84 position. All zero when not valid, as are the next three. */
AST_API ast_coordinate_t ast_datarecord_get_wgs84coord(const ast_datarecord_t *record);

/** Flight level or altitude, in feet. */
AST_API ast_quantity_t ast_datarecord_get_flightlevel(const ast_datarecord_t *record);

/** Selected altitude, in feet. */
AST_API ast_quantity_t ast_datarecord_get_selaltitude(const ast_datarecord_t *record);

/** Polar position. */
AST_API ast_polar_coordinate_t ast_datarecord_get_polarcoord(const ast_datarecord_t *record);

/** Magnetic heading and true track angle. Both values -1 when not valid. */
AST_API ast_heading_t ast_datarecord_get_heading(const ast_datarecord_t *record);

/** Ground speed, in knots. All zero when not valid, as are the next two. */
AST_API ast_quantity_t ast_datarecord_get_speed(const ast_datarecord_t *record);

/** Cartesian velocity. */
AST_API ast_cartesian_velocity_t ast_datarecord_get_cartesianvel(const ast_datarecord_t *record);

/** Vertical rate, in feet per minute. */
AST_API ast_quantity_t ast_datarecord_get_vrate(const ast_datarecord_t *record);

/* Keywords: the same quantities by number, for lists, columns and filters. */
#define AST_KEYWORD_SACSIC UINT32_C(0)
#define AST_KEYWORD_TIMEOFDAY UINT32_C(1)
#define AST_KEYWORD_MSGTYPE UINT32_C(2)
#define AST_KEYWORD_TRACKNUM UINT32_C(3)
#define AST_KEYWORD_SQUAWK UINT32_C(4)
#define AST_KEYWORD_FLIGHTLEVEL UINT32_C(5)
#define AST_KEYWORD_SELALTITUDE UINT32_C(6)
#define AST_KEYWORD_CALLSIGN UINT32_C(7)
#define AST_KEYWORD_ICAOADDR UINT32_C(8)
#define AST_KEYWORD_WGS84COORD UINT32_C(9)
#define AST_KEYWORD_POLARCOORD UINT32_C(10)
#define AST_KEYWORD_SPEED UINT32_C(11)
#define AST_KEYWORD_HEADING UINT32_C(12)
#define AST_KEYWORD_CARTESIANVEL UINT32_C(13)
#define AST_KEYWORD_VRATE UINT32_C(14)
#define AST_KEYWORDS 15

/* How a keyword shows a WGS-84 position; any other selector reads as the first. */
#define AST_POSITION_DMS UINT32_C(0)           /* ast_latlong_to_str */
#define AST_POSITION_DMS_HIGH UINT32_C(1)      /* ast_latlong_to_str_high */
#define AST_POSITION_DMS_VERY_HIGH UINT32_C(2) /* ast_latlong_to_str_very_high */
#define AST_POSITION_DEGREES UINT32_C(3)       /* decimal degrees */

/** The short title of a keyword; empty for an unknown one. */
AST_API void ast_keyword_name(char *text, uint64_t capacity, uint32_t keyword);

/** What a keyword shows; empty for an unknown one. */
AST_API void ast_keyword_description(char *text, uint64_t capacity, uint32_t keyword);

/** Whether the first word of a text is the first word of a pattern. Null texts match nothing. */
AST_API bool ast_keyword_match(const char *text, const char *pattern, bool case_sensitive);

/** Whether a record has a valid value for a keyword, asked of keywords 3 to 5, 7 and 8; false for any other. */
AST_API bool ast_datarecord_contain_keyword(const ast_datarecord_t *record, uint32_t keyword);

/** Whether a record's value for a keyword is the one that a pattern gives.
 *  pattern  0: SAC × 1000 + SIC, decimal. 3: decimal. 4: octal digits. 5: flight level in hundreds of feet, which has
 * to be met exactly. 7: a whole word. 8: hexadecimal. Any other keyword never matches. */
AST_API bool ast_datarecord_match_keyword(const ast_datarecord_t *record, uint32_t keyword, const char *pattern,
                                          bool case_sensitive);

/** A record's value for a keyword as text; empty when it has none.
 *  position_format  one of AST_POSITION_..., for keyword 9 */
AST_API void ast_datarecord_get_keyword(char *text, uint64_t capacity, const ast_datarecord_t *record, uint32_t keyword,
                                        uint32_t position_format);

/** The same, and returns of how many characters the text is, the terminator not counted: for those who lay it out and
 *  need not measure it. */
AST_API uint64_t ast_datarecord_write_keyword(char *text, uint64_t capacity, const ast_datarecord_t *record,
                                              uint32_t keyword, uint32_t position_format);

AST_END_DECLARATIONS

#endif
