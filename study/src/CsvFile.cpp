#include "CsvFile.h"

#include "measure/Row.h"
#include "study/CsvText.h"

namespace quorvane {

void CsvFile::comma() {
  if (inRow_) buffer_ += ',';
  inRow_ = true;
}

CsvFile& CsvFile::operator<<(std::string_view text) {
  comma();
  appendCsvCell(buffer_, text);
  return *this;
}

CsvFile& CsvFile::operator<<(std::int64_t number) {
  comma();
  appendText(buffer_, number);
  return *this;
}

CsvFile& CsvFile::operator<<(double number) {
  comma();
  appendText(buffer_, number);
  return *this;
}

void CsvFile::endRow() {
  constexpr std::size_t enough = 1 << 16;
  buffer_ += '\n';
  inRow_ = false;
  if (buffer_.size() < enough) return;
  writer_.write(buffer_);
  buffer_.clear();
}

void CsvFile::finish() {
  writer_.write(buffer_);
  buffer_.clear();
  writer_.finish();
}

}  // namespace quorvane
