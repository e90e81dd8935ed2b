// The list of all categories.

#include "codec/category.hpp"

#define AST_CATEGORIES(X)                                                                                              \
    X(001, 1)                                                                                                          \
    X(002, 2)                                                                                                          \
    X(004, 4)                                                                                                          \
    X(008, 8)                                                                                                          \
    X(010, 10)                                                                                                         \
    X(015, 15)                                                                                                         \
    X(016, 16)                                                                                                         \
    X(019, 19)                                                                                                         \
    X(020, 20)                                                                                                         \
    X(021, 21)                                                                                                         \
    X(023, 23)                                                                                                         \
    X(034, 34)                                                                                                         \
    X(048, 48)                                                                                                         \
    X(062, 62)                                                                                                         \
    X(063, 63)                                                                                                         \
    X(065, 65)                                                                                                         \
    X(240, 240)

namespace ast {

#define AST_DECLARE_CATEGORY(code, number) extern const Category kCategory##code;
AST_CATEGORIES(AST_DECLARE_CATEGORY)

namespace {

constexpr ItemTable<0> kNoItems{};
constexpr Category kNoCategory = {.number = kCategoryNumbers,
                                  .unknown_name = "",
                                  .get_name = nullptr,
                                  .places = kNoItems.places.data(),
                                  .rows = kNoItems.rows.data(),
                                  .slots = nullptr};

} // namespace

#define AST_ENTER_CATEGORY(code, number) list[number] = &kCategory##code;
constinit const std::array<const Category *, kCategoryNumbers + 1> kCategories = [] {
    std::array<const Category *, kCategoryNumbers + 1> list{};
    list.fill(&kNoCategory);
    AST_CATEGORIES(AST_ENTER_CATEGORY)
    return list;
}();

} // namespace ast
