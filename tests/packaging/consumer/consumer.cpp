// Decodes a block with the installed library and checks what it says.
#include <ast.h>

#include <cstdio>
#include <memory>
#include <string_view>

int main() {
    // Category 034, 9 octets, FSPEC with FRN 1 and 3, SAC 25, SIC 12, time 27221 s (07:33:41).
    static const uint8_t octets[] = {34, 0, 9, 0xA0, 0x19, 0x0C, 0x35, 0x2A, 0x80};
    const auto block = std::make_unique<ast_datablock_t>(ast_datablock_smart_decode(octets, sizeof octets));

    char summary[80] = "";
    if (block->valid) ast_dataitem_get_summary(summary, sizeof summary, &block->records[0].items[1]);
    std::printf("ast %s: %s\n", ast_library_version(), summary);
    return std::string_view(summary) == "TOD:07:33:41.000" ? 0 : 1;
}
