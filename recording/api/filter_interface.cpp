// The exported functions of filters. None lets an exception out.

#include <memory>
#include <new>
#include <string>

#include "api/failure.hpp"
#include "api/handles.hpp"

using namespace ast::recording;

ast_filter_t *ast_filter_open(const char *expression, ast_filter_error_t *error) {
    ast_filter_error_t ignored;
    ast_filter_error_t &why = error ? *error : ignored;
    why = {};
    try {
        auto filter = std::make_unique<ast_filter>();
        filter->filter.add(expression ? expression : "");
        return filter.release();
    } catch (const Mistake &mistake) {
        why.position = mistake.place().at;
        why.length = mistake.place().size;
        give_text(why.text, sizeof why.text, mistake.what());
    } catch (const std::bad_alloc &) {
        give_text(why.text, sizeof why.text, "no memory");
    } catch (const std::exception &failure) {
        give_text(why.text, sizeof why.text, failure.what());
    }
    return nullptr;
}

bool ast_filter_matches(const ast_filter_t *filter, const ast_datarecord_t *record, const ast_answers_t *answers) {
    if (!filter || !record) return false;
    ast_answers_t asked;
    if (!answers) ast_datarecord_get_answers(record, nullptr, &asked);
    Answerer answerer;
    answerer.set_record(*record, answers ? *answers : asked);
    try {
        return filter->filter.meets(answerer);
    } catch (const std::exception &) {
        return false;
    }
}

bool ast_filter_asks_position(const ast_filter_t *filter) { return filter && filter->filter.asks_position(); }

uint64_t ast_filter_get_ambiguities(char *text, uint64_t capacity, const ast_filter_t *filter) {
    try {
        std::string lines;
        if (filter)
            for (const std::string &line : filter->filter.ambiguities(CategorySet().set()))
                lines.append(lines.empty() ? "" : "\n").append(line);
        return give_text(text, capacity, lines);
    } catch (const std::exception &) {
        return give_text(text, capacity, "");
    }
}

void ast_filter_close(ast_filter_t *filter) { delete filter; }
