/* Category 023: status and statistics of CNS/ATM ground stations. */
#ifndef AST_CAT023_H
#define AST_CAT023_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 023, also of one that is known but not registered; "Unknown CAT023 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_023_get_name(ast_dataitem_type_t type);

/** I023/000, report type: 1 station status, 2 service status, 3 service statistics. Takes an item of one octet of any
 *  type. */
AST_API void ast_dataitem_023_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I023/015, service type and identification. */
typedef struct {
    bool valid;
    uint32_t sid;  /* service identification, 0 to 15 */
    uint32_t styp; /* 1 ADS-B VDL4, 2 ADS-B ES, 3 ADS-B UAT, 4 to 6 the same of TIS-B, 7 FIS-B VDL4, 8 GRAS VDL4,
                    * 9 multilateration; 0 for any other */
} ast_dataitem_023_015_t;
AST_API ast_dataitem_023_015_t ast_dataitem_023_015_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_023_015_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_023_015_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I023/100, ground station status. */
typedef struct {
    bool valid;
    bool nogo;       /* data not to be used operationally */
    bool odp;        /* data processor overloaded */
    bool oxt;        /* data communication overloaded */
    bool msc;        /* monitoring system connected */
    bool time_valid; /* time source valid */
    bool spo;        /* potential spoofing attack */
    bool rn;         /* track numbering restarted */
    uint32_t gssp_s; /* period of these reports in seconds, 0 to 127; 0 without a second octet */
} ast_dataitem_023_100_t;
AST_API ast_dataitem_023_100_t ast_dataitem_023_100_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_023_100_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_023_100_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

AST_END_DECLARATIONS

#endif
