// Mode S registers. The input chooses a register; its octets follow, too few or too many of them included.

#include "harness.hpp"
#include "value_decoders.hpp"

namespace ast_fuzz {

void run(Input input) {
    const uint32_t number = input.octet();
    const Octets octets = input.rest();
    const ast_bds_t bds = ast_bds_decode(octets.data(), octets.size(), number);
    require(bds.valid == (octets.size() >= 7), "a register is valid with other than seven octets");
    for (const RegisterDecoder decodes : kRegisterDecoders)
        require(!decodes(&bds) || bds.valid, "a register that is not valid has a value");

    static char text[16384];
    const auto show = [&](ast_bds_detail_html_t *detail) {
        detail(text, sizeof text, &bds);
        require(strnlen(text, sizeof text) < sizeof text, "a detail view is not terminated");
    };
    show(ast_bds_get_detail_html);
    if (const auto detail = ast_bds_get_func(number)) show(detail);
    require(ast_bds_get_name(number) && ast_bds_type_to_str(number) && ast_bds_type_to_str_simple(number),
            "a register has no name");
}

} // namespace ast_fuzz
