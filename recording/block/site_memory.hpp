// Where data sources stand, and the places of targets by that.
#pragma once

#include <ast.h>
#include <memory>
#include <span>
#include <vector>

#include "base/octets.hpp"

namespace ast::recording {

struct SplitBlock;

// What is known at one place of an input can be kept for when that place is decoded: copies share what they know.
class SiteMemory {
public:
    // Knows no site, and learns none.
    SiteMemory() = default;

    // Knows these, which nothing that is learnt changes; later ones take the place of earlier ones.
    explicit SiteMemory(std::span<const ast_site_t> given);

    // Whether the records of such a block may tell something that is still learnt.
    bool learns_from(Octets block) const;

    // The places that the records of a block tell, in their order.
    void learn(const SplitBlock &block);

    // From now on no block tells anything.
    void freeze() { learns_ = false; }
    bool learns() const { return learns_; }

    // Unless the source has a place that is known better.
    void add(const ast_site_t &site);

    // Null where there is none; good until another one is added.
    const ast_site_t *find(uint32_t sac, uint32_t sic) const {
        return table_ ? ast_sites_find(&table_->sites, sac, sic) : nullptr;
    }

    // Those of them that are given or learnt.
    SiteMemory told() const;

    // All, by SAC and SIC. Good until another one is added.
    std::span<const ast_site_t> list() const {
        if (!table_) return {};
        return {table_->sites.sites, static_cast<size_t>(table_->sites.count)};
    }

    // As ast_sites_locate.
    bool locate(ast_answers_t &answers) const { return table_ && ast_sites_locate(&table_->sites, &answers); }

private:
    // Never changed once others share it.
    struct Table {
        Table(std::span<const ast_site_t> known, const ast_site_t &added);

        std::vector<ast_site_t> room;
        ast_sites_t sites;
    };

    std::shared_ptr<const Table> table_; // null for no sites
    bool learns_ = false;
};

} // namespace ast::recording
