/* Category 019: status of a multilateration system. */
#ifndef AST_CAT019_H
#define AST_CAT019_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 019, also of one that is known but not registered; "Unknown CAT019 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_019_get_name(ast_dataitem_type_t type);

/** I019/000, message type: 1 start of update cycle, 2 periodic status, 3 event status. */
AST_API void ast_dataitem_019_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I019/550, system status. */
typedef struct {
    bool valid;
    uint32_t nogo; /* 0 operational, 1 degraded, 2 not operational, 3 (by default) undefined */
    bool ovl;      /* overloaded */
    bool tsv;      /* time source invalid */
    bool ttf;      /* test target failure, read from bit 3; bit 4 is not read */
} ast_dataitem_019_550_t;
AST_API ast_dataitem_019_550_t ast_dataitem_019_550_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_019_550_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_019_550_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

#define AST_019_551_PROCESSORS 4

/** I019/551, tracking processors 1 to 4. One of which both flags are clear is not used in the system. */
typedef struct {
    bool valid;
    struct {
        bool exec;                /* executive, otherwise standby */
        bool good;                /* otherwise faulted */
    } tp[AST_019_551_PROCESSORS]; /* processor 1 first */
} ast_dataitem_019_551_t;
AST_API ast_dataitem_019_551_t ast_dataitem_019_551_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_019_551_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_019_551_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I019/552, remote sensors. Not valid unless the item is as long as its REP says. */
typedef struct {
    bool valid;
    struct {
        uint32_t rsi;               /* identification, 0 to 255 */
        bool rs1090;                /* has a receiver for 1090 MHz */
        bool tx1030;                /* has a transmitter for 1030 MHz */
        bool tx1090;                /* has a transmitter for 1090 MHz */
        bool rss;                   /* good, otherwise faulted */
        bool rso;                   /* online */
    } sensors[AST_REPETITIONS_MAX]; /* in the order in which they are sent */
    uint64_t count;                 /* REP: the first so many sensors are meaningful */
} ast_dataitem_019_552_t;
AST_API ast_dataitem_019_552_t ast_dataitem_019_552_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_019_552_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_019_552_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

#define AST_019_553_MAX_TRANSPONDERS 16

/** I019/553, reference transponders, two an octet. Of an item of more than eight octets no status is read. */
typedef struct {
    bool valid;
    uint32_t transponders[AST_019_553_MAX_TRANSPONDERS]; /* as sent, 0 to 3; shown as 1 good, 2 faulted, 3 warning */
    uint64_t count;                                      /* twice the octets of the item */
} ast_dataitem_019_553_t;
AST_API ast_dataitem_019_553_t ast_dataitem_019_553_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_019_553_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_019_553_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I019/610, height of the reference point above mean sea level; read as magnitude less 32767 when negative. */
typedef struct {
    bool valid;
    int32_t height_raw; /* LSB 1/4 m */
    double height_m;
} ast_dataitem_019_610_t;
AST_API ast_dataitem_019_610_t ast_dataitem_019_610_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_019_610_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_019_610_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I019/620, height of the geoid above the ellipsoid; read as magnitude less 127 when negative. */
typedef struct {
    bool valid;
    int32_t undulation_m; /* LSB 1 m */
} ast_dataitem_019_620_t;
AST_API ast_dataitem_019_620_t ast_dataitem_019_620_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_019_620_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_019_620_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

AST_END_DECLARATIONS

#endif
