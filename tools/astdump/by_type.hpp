// A value for every item type, in arrays that are made for the categories that are met.
#pragma once

#include <array>
#include <memory>

#include "ast.h"

namespace astdump {

template <typename Value>
class ByType {
public:
    static constexpr uint32_t kTypes = 1000; // of a category

    Value &operator[](ast_dataitem_type_t type) { return of_category(type / kTypes)[type % kTypes]; }

    // By the number of the item in the category.
    std::array<Value, kTypes> &of_category(uint32_t number) {
        auto &category = categories_[number % categories_.size()];
        if (!category) category = std::make_unique<std::array<Value, kTypes>>();
        return *category;
    }

    // Calls visit(type, value) for all types of these categories, in their order.
    template <typename Visitor>
    void each(Visitor visit) const {
        for (uint32_t category = 0; category < categories_.size(); ++category)
            for (uint32_t item = 0; categories_[category] && item < kTypes; ++item)
                visit(category * kTypes + item, (*categories_[category])[item]);
    }

private:
    std::array<std::unique_ptr<std::array<Value, kTypes>>, 256> categories_{};
};

} // namespace astdump
