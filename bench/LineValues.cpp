#include "bench/LineValues.h"

#include <cstring>

namespace imptable {

void LineValues::Keep(const std::vector<ParameterBuffer>& buffers) {
  first_cell_.push_back(cells_.size());
  for (const ParameterBuffer& buffer : buffers) {
    cells_.push_back({buffer.text_indicator, buffer.number_indicator, buffer.date_indicator,
                      buffer.number, buffer.date, texts_.size()});
    if (buffer.text_indicator > 0) {
      texts_.append(buffer.text.data(), static_cast<std::size_t>(buffer.text_indicator));
    }
  }
}

void LineValues::Restore(std::size_t index, std::vector<ParameterBuffer>& buffers) const {
  const Cell* cell = &cells_[first_cell_[index]];
  for (ParameterBuffer& buffer : buffers) {
    buffer.text_indicator = cell->text_indicator;
    buffer.number_indicator = cell->number_indicator;
    buffer.date_indicator = cell->date_indicator;
    buffer.number = cell->number;
    buffer.date = cell->date;
    if (cell->text_indicator > 0) {
      std::memcpy(buffer.text.data(), texts_.data() + cell->text_at,
                  static_cast<std::size_t>(cell->text_indicator));
    }
    ++cell;
  }
}

}  // namespace imptable
