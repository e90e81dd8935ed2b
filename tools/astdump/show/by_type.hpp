// A value for every item type, in arrays that are made for the categories that are met.
#pragma once

#include <array>
#include <ast.h>
#include <memory>

namespace ast::recording::astdump {

template <typename Value>
class ByType {
public:
    static constexpr uint32_t kTypes = 1000; // of a category

    Value &operator[](ast_dataitem_type_t type) { return of(type / kTypes)[type % kTypes]; }

    // The values of a category, by the last digits of the types.
    std::array<Value, kTypes> &of(uint32_t category) {
        auto &values = categories_[category % categories_.size()];
        if (!values) values = std::make_unique<std::array<Value, kTypes>>();
        return *values;
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

} // namespace ast::recording::astdump
