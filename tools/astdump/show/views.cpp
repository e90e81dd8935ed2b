#include "show/views.hpp"

namespace ast::recording::astdump {

std::string_view Views::summary(const ast_dataitem_t &item) {
    const std::string_view text = show(ast_dataitem_get_summary, item);
    if (text == kNoSummary) return {};
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace ast::recording::astdump
