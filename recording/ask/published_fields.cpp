#include "ask/published_fields.hpp"

#include <algorithm>
#include <set>

#include "block/profile_names.hpp"

namespace ast::recording {

namespace {

constexpr uint32_t kCategories = 256;
constexpr uint32_t kItems = 1000;
constexpr uint32_t kRegisters = 256;
constexpr uint32_t kAdsB = 21; // the category whose editions differ under one number

struct Describer {
    const TakeField &take;
    std::string prefix{};

    static void field(void *context, const ast_field_t *field) {
        auto &describer = *static_cast<Describer *>(context);
        describer.take(*field, field->path);
        if (field->kind != AST_FIELD_REGISTER) return;
        describer.prefix = field->path;
        for (uint32_t bds = 0; bds < kRegisters; ++bds) ast_bds_describe(bds, field_of_register, context);
    }

    static void field_of_register(void *context, const ast_field_t *field) {
        auto &describer = *static_cast<Describer *>(context);
        const std::string_view name = field->path;
        const size_t slash = name.find('/'); // behind the number of the register
        if (slash != std::string_view::npos) describer.take(*field, describer.prefix + std::string(name.substr(slash)));
    }
};

std::string without_brackets(std::string_view path) {
    std::string result;
    bool is_within = false;
    for (const char c : path) {
        if (c == '[') is_within = true;
        if (!is_within) result += c;
        if (c == ']') is_within = false;
    }
    return result;
}

} // namespace

void describe_fields(ast_dataitem_type_t type, const ast_uap_t &uap, const TakeField &take) {
    Describer describer{take};
    ast_dataitem_describe(type, uap, Describer::field, &describer);
}

std::vector<PublishedField> published_fields() {
    std::vector<PublishedField> all;
    std::set<std::string> known;
    const TakeField take = [&](const ast_field_t &field, std::string_view path) {
        const bool is_item = std::ranges::count(path, '/') == 1;
        if (field.kind == AST_FIELD_SPARE || !(has_value(field) || is_item)) return;
        PublishedField found{without_brackets(path), path.find('[') != std::string_view::npos, field};
        found.field.path = "";
        if (known.insert(found.path).second) all.push_back(std::move(found));
    };
    for (uint32_t category = 0; category < kCategories; ++category) {
        if (AST_UAP_PUBLISHED.max_frn(category) == 0) continue;
        for (uint32_t number = 0; number < kItems; ++number) {
            const ast_dataitem_type_t type = AST_DATAITEM_TYPE(category, number);
            describe_fields(type, AST_UAP_PUBLISHED, take);
            if (category != kAdsB) continue;
            for (const ast_uap_info_t &profile : profiles()) describe_fields(type, *profile.uap, take);
        }
    }
    return all;
}

} // namespace ast::recording
