#include "data/Recordset.h"

#include <algorithm>
#include <utility>

#include "data/DataError.h"

namespace tessivo {
namespace {

[[noreturn]] void misuse(const std::string& text) {
  throw DataError(DataFault::failed, text);
}

bool equalNoCase(std::string_view one, std::string_view other) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [&](char a, char b) { return lower(a) == lower(b); });
}

}  // namespace

Recordset::Recordset(std::shared_ptr<Database> connection, const std::string& source,
                     CommandType type)
    : connection_(std::move(connection)) {
  requireOpen();
  rows_ = type == CommandType::table ? connection_->openTable(source) : connection_->query(source);
}

bool Recordset::bof() const {
  return !adding_ && (recordCount() == 0 || current_ < 0);
}
bool Recordset::eof() const {
  return !adding_ && current_ >= recordCount();
}

void Recordset::moveFirst() {
  update();
  if (recordCount() == 0) misuse("no first row: the recordset is empty");
  current_ = 0;
}

void Recordset::moveLast() {
  update();
  if (recordCount() == 0) misuse("no last row: the recordset is empty");
  current_ = recordCount() - 1;
}

void Recordset::moveNext() {
  update();
  if (eof()) misuse("no next row: the recordset is at its end");
  ++current_;
}

void Recordset::movePrevious() {
  update();
  if (bof()) misuse("no previous row: the recordset is at its beginning");
  --current_;
}

std::int32_t Recordset::recordCount() const {
  return static_cast<std::int32_t>(rows_.rowCount());
}

std::int32_t Recordset::absolutePosition() const {
  if (adding_) return recordCount() + 1;
  if (bof()) return kAtBof;
  if (eof()) return kAtEof;
  return static_cast<std::int32_t>(current_ + 1);
}

void Recordset::setAbsolutePosition(std::int32_t position) {
  update();
  if (position < 1 || position > recordCount()) misuse("no row " + std::to_string(position));
  current_ = position - 1;
}

void Recordset::setPageSize(std::int32_t rows) {
  if (rows < 1) misuse("a page of " + std::to_string(rows) + " rows");
  pageSize_ = rows;
}

std::int32_t Recordset::pageCount() const {
  return recordCount() / pageSize_ + (recordCount() % pageSize_ != 0 ? 1 : 0);
}

std::int32_t Recordset::absolutePage() const {
  const auto position = absolutePosition();
  return position < 1 ? position : (position - 1) / pageSize_ + 1;
}

void Recordset::setAbsolutePage(std::int32_t page) {
  if (page < 1 || page > pageCount()) misuse("no page " + std::to_string(page));
  setAbsolutePosition((page - 1) * pageSize_ + 1);
}

const Value& Recordset::value(std::string_view field) const {
  static const Value null;
  const auto column = columnOf(field);
  if (editing() && edit_[column]) return *edit_[column];
  return adding_ ? null : rows_.cells[currentRow() * rows_.columns.size() + column];
}

void Recordset::setValue(std::string_view field, Value value) {
  const auto column = columnOf(field);
  beginEdit();
  edit_[column] = std::move(value);
}

void Recordset::addNew() {
  requireOpen();
  update();
  if (rows_.table.empty()) misuse("these rows cannot be written back");
  adding_ = true;
  edit_.resize(rows_.columns.size());
}

void Recordset::update() {
  if (!editing()) return;
  if (adding_) {
    writeNewRow();
  } else {
    writeChangedRow();
  }
  adding_ = false;
  edit_.clear();
}

void Recordset::close() {
  connection_.reset();
  rows_ = {};
  current_ = 0;
  adding_ = false;
  edit_.clear();
}

std::size_t Recordset::columnOf(std::string_view field) const {
  for (std::size_t i = 0; i < rows_.columns.size(); ++i) {
    if (equalNoCase(rows_.columns[i], field)) return i;
  }
  misuse("no field " + std::string(field) + (connection_ ? "" : ": the recordset is closed"));
}

std::size_t Recordset::currentRow() const {
  if (bof() || eof()) misuse("no current row");
  return static_cast<std::size_t>(current_);
}

void Recordset::requireOpen() const {
  if (!connection_) misuse("the recordset is closed");
}

void Recordset::beginEdit() {
  if (editing()) return;
  currentRow();
  if (rows_.table.empty()) misuse("these rows cannot be written back");
  edit_.resize(rows_.columns.size());
}

void Recordset::writeNewRow() {
  std::vector<FieldValue> fields;
  for (std::size_t i = 0; i < edit_.size(); ++i) {
    if (edit_[i]) fields.push_back({rows_.columns[i], &*edit_[i]});
  }
  connection_->insertRow(rows_.table, fields);
  current_ = recordCount();
  for (auto& value : edit_) rows_.cells.push_back(value ? std::move(*value) : Value());
}

void Recordset::writeChangedRow() {
  auto* row = &rows_.cells[currentRow() * rows_.columns.size()];
  std::vector<FieldValue> changes;
  std::vector<FieldValue> original;
  for (std::size_t i = 0; i < edit_.size(); ++i) {
    if (edit_[i]) changes.push_back({rows_.columns[i], &*edit_[i]});
    original.push_back({rows_.columns[i], &row[i]});
  }
  connection_->updateRow(rows_.table, changes, original);
  for (std::size_t i = 0; i < edit_.size(); ++i) {
    if (edit_[i]) row[i] = std::move(*edit_[i]);
  }
}

}  // namespace tessivo
