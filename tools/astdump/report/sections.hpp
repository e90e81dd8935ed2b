// What is shown of the figures of a source.
#pragma once

#include "report/document.hpp"
#include "report/source_figures.hpp"

namespace ast::recording::astdump {

SourceReport report_of(const FamilySource &source, const SourceFigures &figures);

} // namespace ast::recording::astdump
