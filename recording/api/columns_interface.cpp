// The exported function of columns. It lets no exception out.

#include <utility>

#include "api/column_stream.hpp"
#include "api/handles.hpp"
#include "api/opening.hpp"

using namespace ast::recording;

namespace {

std::string_view text_of(const char *text) { return text ? text : ""; }

std::unique_ptr<ColumnStream> make_stream(const ast_recording_t *recording, const ast_columns_options_t &options) try {
    if (!recording) throw CannotOpen(AST_RECORDING_ERROR_OPTION, "there is no recording");
    ColumnStream::Choice choice{.categories = CategorySet().set(), .filter = {}, .sites = {}, .rows = options.rows};
    if (options.categories) {
        const auto categories = read_categories(options.categories);
        if (!categories) throw CannotOpen(AST_RECORDING_ERROR_OPTION, "no list of categories");
        choice.categories = *categories;
    }
    if (options.filter) choice.filter = options.filter->filter;
    if (options.sites) choice.sites.assign(options.sites->sites, options.sites->sites + options.sites->count);
    if (choice.rows == 0) choice.rows = RowGroup::kUsualRows;
    const std::string_view columns = text_of(options.columns);
    auto table = std::make_shared<const Table>(read_table(columns, text_of(options.names), choice.categories));
    if (!table->is_of_records()) throw CannotOpen(AST_RECORDING_ERROR_OPTION, "reports come by the report function");
    return std::make_unique<ColumnStream>(recording->recording, std::move(table), std::move(choice));
} catch (const std::invalid_argument &error) {
    throw CannotOpen(AST_RECORDING_ERROR_OPTION, error.what());
}

} // namespace

bool ast_columns_get_stream(ast_recording_t *recording, const ast_columns_options_t *options,
                            struct ArrowArrayStream *stream, ast_recording_error_t *error) {
    if (stream) *stream = {};
    std::unique_ptr<ColumnStream> columns(opened(
        options, error, [&](const ast_columns_options_t &chosen) { return make_stream(recording, chosen).release(); }));
    if (!columns || !stream) return false;
    ColumnStream::put(std::move(columns), *stream);
    return true;
}
