/* Where data sources stand, and with that, where on the earth the targets are that they have measured from there.
 *
 *     static ast_site_t room[300];
 *     ast_sites_t sites = {.sites = room, .room = 300};
 *     ast_site_t split = {.sac = 25, .sic = 12, .known = AST_SITE_GIVEN, .place = {43.57, 16.41, 780}};
 *     ast_sites_add(&sites, &split);
 *     ...
 *     ast_sites_learn(&sites, &record); // what sources tell of their places
 *     ast_datarecord_get_answers(&record, &context, &answers);
 *     if (ast_sites_locate(&sites, &answers)) printf("%f %f\n", answers.latitude_deg, answers.longitude_deg);
 *
 * Places are those of WGS-84. Heights are in metres above its ellipsoid; heights above mean sea level, and flight
 * levels, are taken as if they were: where both site and target are 50 m higher, a target at 250 NM moves by 4 m.
 *
 * From a sensor, a target is placed by its slant range, its azimuth and its height, on a straight line: refraction
 * makes no range longer that matters. From there, or from the point that a system is drawn around, x and y lead to a
 * place by what ast_answers_t.frame says that they are:
 *
 *     AST_FRAME_RADAR        made of slant range and azimuth: placed as these are
 *     AST_FRAME_TANGENTIAL   on the plane that touches the earth at the height of the site, targets being seen as high
 *                            as that
 *     AST_FRAME_SYSTEM       on the stereographic plane of the conformal sphere of that place, whose radius is that of
 *                            the earth's curvature there
 *
 * A system may have another radius in mind: one was found to draw its tracks 0.02 % closer than that.
 *
 * A table of sites is the caller's: nothing is shared by the process. While nobody adds or learns, several threads may
 * find and locate by the same one. */
#ifndef AST_SITES_H
#define AST_SITES_H

#include "answers.h"

AST_BEGIN_DECLARATIONS

/** A place on WGS-84. */
typedef struct {
    double latitude_deg;  /* -90 to 90 */
    double longitude_deg; /* -180 to 180 */
    double height_m;      /* above the ellipsoid */
} ast_place_t;

/* How the place of a site is known. What is known better has the higher number. */
#define AST_SITE_WORKED_OUT UINT32_C(1) /* from targets that it and others have seen */
#define AST_SITE_LEARNT UINT32_C(2)     /* from its own messages */
#define AST_SITE_GIVEN UINT32_C(3)      /* by the user */

/** A data source with a place. */
typedef struct {
    uint32_t sac; /* of the data source, as the next */
    uint32_t sic;
    uint32_t known;          /* AST_SITE_... */
    ast_place_t place;       /* where it stands */
    double standard_error_m; /* of a place that is worked out, in any direction; 0 of others */
} ast_site_t;

/** A table of sites, in the order of SAC and SIC. With `count` 0, an empty one. */
typedef struct {
    ast_site_t *sites; /* the caller's */
    uint64_t room;     /* how many fit */
    uint64_t count;    /* how many there are */
} ast_sites_t;

/** Puts a site into its place in the table, or another place for one that is there, unless that is known better.
 *  site  copied; SAC and SIC up to 255, a place on the globe within 100 km of its surface
 *  Returns whether the table holds this place now; false, and nothing changed, for a site that is not as it must be,
 *  when there is no room for another one, and for null. */
AST_API bool ast_sites_add(ast_sites_t *sites, const ast_site_t *site);

/** The site of a data source, in the table; null when it is not there. */
AST_API const ast_site_t *ast_sites_find(const ast_sites_t *sites, uint32_t sac, uint32_t sic);

/** Adds the place that a record tells of its source: I034/120; I025/600 and 610; I019/600, 610 and 620; I016/400 and
 *  405. Without a height it is 0. Latitude and longitude 0 tell nothing.
 *  Returns whether the table holds that place now, as ast_sites_add does; false for a record that tells none. */
AST_API bool ast_sites_learn(ast_sites_t *sites, const ast_datarecord_t *record);

/** Completes answers without latitude and longitude, by the site of their source: from range and azimuth, or else from
 *  x and y. The height is the flight level, or else altitude_ft; without one, that of the site, as on the ground.
 *  Returns whether latitude and longitude were added; `located` says how. False, and nothing changed, where there are
 *  some already, where the source has no site, where nothing was measured from there, and beyond 1000 NM. */
AST_API bool ast_sites_locate(const ast_sites_t *sites, ast_answers_t *answers);

/** Where something is that is seen in a slant range and an azimuth, as high above the ellipsoid as height_m.
 *  target  written whole, unless null. What is not as far as it is higher or lower than the station is right above or
 *          below it
 *  Returns false, and a target of zeros, beyond 1000 NM, for a station off the globe, and for null. */
AST_API bool ast_place_from_polar(const ast_place_t *station, double range_nm, double azimuth_deg, double height_m,
                                  ast_place_t *target);

/** The slant range and the azimuth, from 0 to below 360, in which a station sees a target.
 *  range_nm, azimuth_deg  null where nobody asks
 *  Returns false, and writes zeros, for a place off the globe, and for null. */
AST_API bool ast_place_to_polar(const ast_place_t *station, const ast_place_t *target, double *range_nm,
                                double *azimuth_deg);

AST_END_DECLARATIONS

#endif
