// A value for every item type, in arrays that are made for the categories that are met.
#pragma once

#include <array>
#include <memory>

#include "ast.h"

namespace astdump {

template <typename Value>
class ByType {
public:
    Value &operator[](ast_dataitem_type_t type) {
        auto &category = categories_[type / kTypes % categories_.size()];
        if (!category) category = std::make_unique<std::array<Value, kTypes>>();
        return (*category)[type % kTypes];
    }

    // Calls visit(type, value) for all types of these categories, in their order.
    template <typename Visitor>
    void each(Visitor visit) const {
        for (uint32_t category = 0; category < categories_.size(); ++category)
            for (uint32_t item = 0; categories_[category] && item < kTypes; ++item)
                visit(category * kTypes + item, (*categories_[category])[item]);
    }

private:
    static constexpr uint32_t kTypes = 1000; // of a category

    std::array<std::unique_ptr<std::array<Value, kTypes>>, 256> categories_{};
};

} // namespace astdump
