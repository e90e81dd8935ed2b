/* Records of one category as records of an older one that says the same, and back.
 *
 * Each takes a decoded record and writes a record of the other category into buffer, which must not overlap the octets
 * of the source. The result is as a decoder gives it, its items in buffer. It is not valid when the source is missing,
 * not valid or of another category, when there is nothing that it can carry, when what says how its octets are read
 * would be missing (I001/020, I002/000), or when the buffer is missing or too short; what is in the buffer then is not
 * to be used.
 *
 * What has no place in the other category, or does not fit its field, is left out. Where both have a field in the same
 * scale its octets are taken over. What becomes what, and how it comes back:
 *
 *     048          001            and back
 *     010          010            the same
 *     020 TYP      020 SSR/PSR    Mode S counts as SSR; comes back as SSR, PSR or both
 *     020 RDP      170 RDPC       the same, of tracks
 *     020 others   020            SIM, SPI, RAB, TST, ME, MI: the same
 *     070 code     020 DS1/DS2    7500, 7600 and 7700, when validated and not garbled; stays out
 *     030          030            by meaning: 048's 1 to 12 are 2 to 7, 80 to 82, 66, 64 and 65; the others stay out
 *     040          040            1/128 NM, half a unit cut off; comes back up to 256 NM
 *     042          042            1/64 NM, half a unit cut off, of tracks; comes back within 256 NM. Read as published,
 *                                 in two's complement
 *     050, 070, 080, 090, 100     050, 070, 080, 090, 100: the same
 *     120 CAL      120            1/256 NM/s, unless doubtful; comes back in metres per second
 *     130 SAM      131            or else PAM; comes back as PAM from a report of PSR alone, otherwise as SAM
 *     140          141            modulo 512 s; stays out
 *     161          161            the same, of tracks; comes back up to 4095
 *     170          170            CNF is CON, RAD is primary or not, MAN, DOU, TRE and GHO the same; CDM stays out, and
 *                                 comes back as 3, RAD as combined when the report is
 *     200          200            the same, of tracks
 *     others       -
 *     -            060, 130, 150, 210 and 020 ANT
 *
 *     034          002            and back
 *     000          000            1 and 2 alone
 *     010          010            the same
 *     020          020            the same
 *     030          030            the same
 *     041          041            the same
 *     others       - */
#ifndef AST_CONVERT_H
#define AST_CONVERT_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/** A target report as category 001: a track, of AST_UAP_STANDARD, when it has a track number, otherwise a plot, of
 *  AST_UAP_CAT001_PLOT. Not valid without I048/020: readers choose between the two by I001/020. */
AST_API ast_datarecord_t ast_datarecord_convert_048_001(uint8_t *buffer, uint64_t length,
                                                        const ast_datarecord_t *source);

/** A target report of category 001, decoded by whatever profile, as category 048 of AST_UAP_STANDARD. */
AST_API ast_datarecord_t ast_datarecord_convert_001_048(uint8_t *buffer, uint64_t length,
                                                        const ast_datarecord_t *source);

/** A service message as category 002 of AST_UAP_STANDARD. Not valid for one that category 002 has no type for, or that
 *  has none. */
AST_API ast_datarecord_t ast_datarecord_convert_034_002(uint8_t *buffer, uint64_t length,
                                                        const ast_datarecord_t *source);

/** A service message of category 002, decoded by whatever profile, as category 034 of AST_UAP_STANDARD. */
AST_API ast_datarecord_t ast_datarecord_convert_002_034(uint8_t *buffer, uint64_t length,
                                                        const ast_datarecord_t *source);

AST_END_DECLARATIONS

#endif
