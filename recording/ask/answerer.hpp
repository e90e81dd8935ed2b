// What the records of a block answer, with what is known beside them.
#pragma once

#include <ast.h>

#include "block/decoded_block.hpp"

namespace ast::recording {

class Answerer {
public:
    Answerer() = default;
    explicit Answerer(const DecodedBlock &decoded) { set_block(decoded); }

    // What is common to the records that follow.
    void set_block(const DecodedBlock &decoded);

    // What is asked next, while it lasts.
    void set_record(const ast_datarecord_t &record) {
        record_ = &record;
        is_asked_ = false;
    }

    // The same where the answers are known, whatever was said of its block.
    void set_record(const ast_datarecord_t &record, const ast_answers_t &answers) {
        record_ = &record;
        answers_ = answers;
        is_asked_ = true;
    }

    // Calls visit() for each record of a block that is asked for, as the one at hand.
    template <typename Visit>
    void each_shown(const DecodedBlock &decoded, Visit visit) {
        set_block(decoded);
        for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
            if (!decoded.shown[i]) continue;
            set_record(decoded.block->records[i]);
            visit();
        }
    }

    const ast_datarecord_t &record() const { return *record_; }

    // Located, and without a timestamp where the recording tells no date. Good until the next record.
    const ast_answers_t &answers() {
        if (!is_asked_) ask();
        return answers_;
    }

private:
    void ask();

    const SiteMemory *sites_ = nullptr;
    ast_answer_context_t context_{};
    bool has_date_ = false;
    const ast_datarecord_t *record_ = nullptr;
    bool is_asked_ = false;
    ast_answers_t answers_{};
};

} // namespace ast::recording
