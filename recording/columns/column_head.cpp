#include "columns/column_head.hpp"

namespace ast::recording {

std::vector<std::pair<std::string_view, std::string_view>> told_of(const ColumnHead &head) {
    std::vector<std::pair<std::string_view, std::string_view>> told = {
        {"unit", head.unit}, {"title", head.title}, {"codes", head.codes}};
    std::erase_if(told, [](const auto &each) { return each.second.empty(); });
    return told;
}

} // namespace ast::recording
