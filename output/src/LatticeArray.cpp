#include "output/LatticeArray.h"

namespace quorvane {

std::string arrayHeader(std::int64_t records, const LatticeModel& model) {
  constexpr std::size_t length = 128;     // NumPy aligns the data to 64 bytes.
  constexpr std::size_t beforeText = 10;  // the magic, the version and the length of the text
  constexpr std::size_t textLength = length - beforeText;
  std::string header = "\x93NUMPY";
  header += {'\x01', '\x00', static_cast<char>(textLength), '\x00'};
  header += "{'descr': '|u1', 'fortran_order': False, 'shape': (" + std::to_string(records) + ", " +
            std::to_string(model.getIMax()) + ", " + std::to_string(model.getJMax()) + "), }";
  header.resize(length - 1, ' ');
  return header + '\n';
}

std::string arrayRecord(const LatticeModel& model) {
  std::string sites;
  sites.reserve(static_cast<std::size_t>(model.getIMax()) * static_cast<std::size_t>(model.getJMax()));
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) sites.push_back(static_cast<char>(model.getSiteValue(i, j)));
  return sites;
}

}  // namespace quorvane
