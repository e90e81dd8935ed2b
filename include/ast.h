/* ast: decodes and encodes surveillance data in ASTERIX, the block format that Eurocontrol publishes category by
 * category.
 *
 * SPDX-License-Identifier: MIT
 *
 * The library is handed one data block at a time and splits it into records, items and subfields:
 *
 *     static ast_datablock_t block;                       // about 54 KB: static or heap storage, not a stack
 *     ast_datablock_smart_decode_into(&block, octets, length);
 *     for (uint64_t r = 0; r < block.record_count; ++r)
 *         for (uint64_t i = 0; i < block.records[r].item_count; ++i)
 *             puts(ast_dataitem_get_name(block.records[r].items[i].type));
 *
 * What holds everywhere:
 *
 * - Nothing is allocated and no thread is started. Decoded records are plain values that point into the caller's
 *   octets and are good for as long as those are.
 * - Nothing fails loudly. A result carries a `valid` flag; when it is false, what was decoded before the fault is kept.
 *   Any octets, any length and any capacity are safe, 0 and null included. Reports go to the log sink.
 * - A text is written into the caller's buffer, cut silently at its capacity and always terminated; with capacity 0 or
 *   a null buffer nothing is written. Numbers in it look the same whatever the host's locale is. Functions that return
 *   a text return a constant, or a buffer that belongs to the calling thread and that the same function's next call on
 *   that thread overwrites; never free it.
 * - Every function may be called from any thread at any time, but for some of cat240.h. Options, log sink, lookups and
 *   HTML flavour are shared by the whole process; set them before other threads decode if all of them are to see the
 *   same settings.
 * - Octets of an item are counted from 1 in the order of transmission, bits from 8 (most significant) to 1 within an
 *   octet, and multi-octet fields are big-endian, as in the category documents.
 *
 * The groups, each in a file of its own that this one includes:
 *
 *     library.h       version, options, log
 *     conversions.h   numbers, codes and positions as ASTERIX carries them
 *     lookups.h       what the application knows about sites, sensors and countries; links to maps
 *     records.h       what decoded blocks, records and items look like, and what an encoder is given
 *     blocks.h        decode, encode, copy and modify blocks and records, and put them together
 *     fspec.h         the bits that announce a record's items, by themselves
 *     items.h         one item: its name, size, octets, summary and details; size rules
 *     compounds.h     compound items and their subfields
 *     profiles.h      which item each FRN announces: editions, and the layouts of particular radars
 *     html.h          what detail views look like in HTML; details.h hands over the pieces that they are made of
 *     values.h        item layouts that categories share, as plain records: decoders, views, encoders
 *     registers.h     Comm-B replies of Mode S transponders by BDS code
 *     enumerations.h  the texts of the codes in items
 *     queries.h       the common quantities of a record, whatever its category; keywords to show and filter by
 *     schema.h        what every published field means; records as JSON, both ways
 *     reader.h        blocks of every published category, with the edition that fits their source
 *     answers.h       when, who, where, how fast: one struct for the published fields of every category
 *     sites.h         where data sources stand, and where on the earth the targets are that they see
 *     census.h        counting what they are made of
 *     convert.h       target reports and service messages of radars as the older categories have them, and back
 *     catNNN.h        what category NNN adds: its own items, accessors, and a flat record that holds all of a record
 *
 * The functions of an item are named after it, ast_dataitem_048_040_... for I048/040 and ast_dataitem_time_of_day_...
 * for a layout that items share, and all of a kind behave alike:
 *
 *     ..._decode           takes a decoded item and returns its value record: valid when the item is valid, of this
 *                          type and of the size that its layout has, and all zero (or the defaults that are stated)
 *                          otherwise. The functions of shared layouts take items of any type.
 *     ..._encode           takes a value record and writes the octets of the item into buffer. Nothing is written, and
 *                          result is not valid, when the record is missing or not valid, when the buffer is missing or
 *                          too short, or when a value does not fit its field; the few encoders that cut a value to
 *                          its field instead say so.
 *     ..._get_summary      writes one line on the value; empty for an item that the decoder does not take
 *     ..._get_detail_html  writes the fields of the value as an HTML table; empty for such an item
 *
 * The same quantity comes in the unit of whoever is asked. For an aircraft at flight level 350 with code 7700:
 *
 *     quantity            in the value record of an item               by accessor, ast_datarecord_get_...  if missing
 *     level, altitude     ast_mode_c_t.flight_level: 1400, LSB 1/4 FL  flightlevel: 35000, feet             0
 *     selected altitude   as the member names it                       selaltitude: feet                    0
 *     Mode 3/A code       ast_mode_3a_t.code: 4032, octal 7700         squawk: 4032                         0xFFFFFFFF
 *     track number        ast_uint_value_t.value                       tracknum                             0xFFFFFFFF
 *     aircraft address    ast_target_address_t.address: 24 bits        icaoaddr: 24 bits                    0xFFFFFFFF
 *     data source         ast_sac_sic_t                                sacsic                               0xFFFFFFFF
 *     identification      ast_aircraft_id_t.text: eight characters      callsign: up to the first blank      empty
 *     time of day         ast_time_of_day_t: since midnight, UTC       timeofday                            all 0
 *     polar position      rho_nm, theta_deg                            polarcoord: the same                 both 0
 *     WGS-84 position     ast_value_pair_t: degrees                    wgs84coord: degrees                  both 0
 *     ground speed        ast_value_pair_t.value_1: knots              speed: knots                         0
 *     heading             ast_value_pair_t.value_2: degrees            heading: degrees                     -1
 *     Cartesian velocity  ast_value_pair_t: metres per second          cartesianvel: metres per second      both 0
 *     vertical rate       ast_scaled_value_t.value: feet per minute    vrate: feet per minute               0
 *
 * What is missing is not valid, too. The keyword of the level shows feet, "35000", and is matched by flight level,
 * "350". */
#ifndef AST_H
#define AST_H

/* clang-format off */
#include "ast/base.h"
#include "ast/library.h"
#include "ast/conversions.h"
#include "ast/lookups.h"
#include "ast/records.h"
#include "ast/blocks.h"
#include "ast/fspec.h"
#include "ast/items.h"
#include "ast/compounds.h"
#include "ast/profiles.h"
#include "ast/html.h"
#include "ast/values.h"
#include "ast/registers.h"
#include "ast/details.h"
#include "ast/enumerations.h"
#include "ast/queries.h"
#include "ast/schema.h"
#include "ast/reader.h"
#include "ast/answers.h"
#include "ast/sites.h"
#include "ast/census.h"
#include "ast/convert.h"

#include "ast/cat001.h"
#include "ast/cat002.h"
#include "ast/cat004.h"
#include "ast/cat008.h"
#include "ast/cat010.h"
#include "ast/cat015.h"
#include "ast/cat016.h"
#include "ast/cat019.h"
#include "ast/cat020.h"
#include "ast/cat021.h"
#include "ast/cat023.h"
#include "ast/cat034.h"
#include "ast/cat048.h"
#include "ast/cat062.h"
#include "ast/cat063.h"
#include "ast/cat065.h"
#include "ast/cat240.h"
/* clang-format on */

#endif
