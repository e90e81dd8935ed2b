/* Numbers and codes as ASTERIX items carry them.
 *
 * Pure functions, but for the texts in buffers of the calling thread. */
#ifndef AST_CONVERSIONS_H
#define AST_CONVERSIONS_H

#include "base.h"

AST_BEGIN_DECLARATIONS

/** The ASCII character of a 6-bit ICAO character code (A-Z, 0-9, blank), or 0. The top two bits are ignored. */
AST_API char ast_icao_to_ansi(uint8_t code);

/** The 6-bit ICAO code of a letter (either case), digit or blank; 0 for any other character. Bits of the argument above
 *  its low octet are kept in the result. */
AST_API int32_t ast_ansi_to_icao(int32_t character);

/** Reads count octets, big-endian, as one signed number and returns its low 32 bits. Null or count 0 gives 0. */
AST_API int32_t ast_twos_complement_to_int(const uint8_t *octets, uint32_t count);

/** The same after leaving out the skip most significant bits of the first octet; a skip above 7 gives 0.
 *  A Mode C height is count 2, skip 2. */
AST_API int32_t ast_twos_complement_to_int_ex(const uint8_t *octets, uint32_t count, uint32_t skip);

/** The value 0 to 15 of a hexadecimal digit, or 0xFFFFFFFF. */
AST_API uint32_t ast_hex_to_int(char digit);

/** The eight binary digits of an octet, most significant first, in a buffer of the calling thread. */
AST_API const char *ast_hex_to_bin(uint8_t octet);

/** Reads an octal number after blanks and an optional sign, up to the first character that is not a decimal digit.
 *  8 and 9 count with their decimal values, so "18" is 16. Text that does not begin so gives 0. Low 32 bits. */
AST_API int32_t ast_atoi_oct(const char *text);

/** Fills count octets with value, whatever destination_size says, and returns 0. */
AST_API int32_t ast_memset(void *destination, uint64_t destination_size, int32_t value, uint64_t count);

/** A position in degrees as "DDMMSSNDDDMMSSE", in a buffer of the calling thread. Latitude 0 is written S, longitude 0
 * W, and a rounded 60 seconds is not carried into the minutes. */
AST_API const char *ast_latlong_to_str(double latitude, double longitude);

/** The same with hundredths of a second: "DDMMSS.ssNDDDMMSS.ssE". */
AST_API const char *ast_latlong_to_str_high(double latitude, double longitude);

/** The same with millionths of a second: "DDMMSS.ssssssNDDDMMSS.ssssssE". */
AST_API const char *ast_latlong_to_str_very_high(double latitude, double longitude);

AST_END_DECLARATIONS

#endif
