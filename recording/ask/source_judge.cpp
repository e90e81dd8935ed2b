#include "ask/source_judge.hpp"

#include "base/cell_writer.hpp"
#include "base/counted.hpp"

namespace ast::recording {

namespace {

JudgedSource source_of(const ast_datarecord_t &record) {
    constexpr uint64_t kSource = AST_ANSWER_SAC | AST_ANSWER_SIC;
    ast_answers_t answers;
    const uint64_t present = ast_datarecord_get_answers(&record, nullptr, &answers);
    if ((present & kSource) != kSource) return {record.category, std::nullopt};
    return {record.category, std::pair(answers.sac, answers.sic)};
}

} // namespace

std::string JudgedSource::source_text() const {
    char text[16];
    CellWriter writer(text);
    if (source) writer.source(source->first, source->second);
    return {text, writer.size()};
}

Judgement &Judgement::operator+=(const Judgement &other) {
    records += other.records;
    implausible += other.implausible;
    return *this;
}

void judge(Judgements &judgements, const SplitBlock &block) {
    for (uint64_t i = 0; i < block.record_count; ++i) {
        const ast_datarecord_t &record = block.records[i];
        judgements[source_of(record)] += {1, ast_datarecord_is_implausible(&record) ? uint64_t{1} : 0};
    }
}

std::string judgement_text(const JudgedSource &source, const Judgement &judgement) {
    const std::string name = source.source_text();
    char category[16];
    CellWriter writer(category);
    writer.digits(source.category, 3);
    return (name.empty() ? "" : "source " + name + ", ") + "category " + std::string(category, writer.size()) + ": " +
           std::to_string(judgement.implausible) + " of " + counted(judgement.records, "record") +
           " cannot be: probably another edition or another format";
}

} // namespace ast::recording
