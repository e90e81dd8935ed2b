// Weather and radar video on the plan of the page.
#pragma once

#include <ast.h>
#include <cstdint>
#include <vector>

namespace ast::recording::astdump {

// Adds what a record draws beside its position, as words: its row, what kind of shape it is, and the members of the
// kind, of which the last is how many values follow:
//
//     0  a picture of weather begins
//     1  factor                                        of the scale of the vectors and contours that follow
//     2  intensity  count                              polar vectors: start, end, azimuth
//     3  intensity  direction  count                   vectors of a start point and a length: x, y, length
//     4  intensity  count                              vectors of two points: x, y, x, y
//     5  intensity  part  serial  count                points of a contour: x, y
//     6  start  end  first cell  cell length  count    cells of video, four to a word, as parts of 255
//
// Azimuths are in parts of 2^16 of a turn, the direction in parts of 16. The part is that of I008/040, the length of a
// cell a float in metres.
void put_shapes(std::vector<uint32_t> &words, uint32_t row, const ast_datarecord_t &record);

} // namespace ast::recording::astdump
