#include "editor/entity_list_view.h"

#include <utility>

#include "core/conversions.h"

namespace kiv {

namespace {

ui::ListColumn NumberLook(std::string caption) {
  constexpr int kCharacters = 9;
  return {std::move(caption), kCharacters, ui::Alignment::Right, ui::ListColumn::Content::Number};
}

}  // namespace

EntityColumn SystemColumn(std::string caption) {
  return {NumberLook(std::move(caption)), [](const CEntity& entity) { return Variant(entity.SystemID()); }};
}

EntityColumn EcpColumn(std::string caption) {
  return {NumberLook(std::move(caption)), [](const CEntity& entity) { return Variant(entity.EcpID()); }};
}

EntityColumn CellColumn(std::string caption) {
  return {NumberLook(std::move(caption)),
          [](const CEntity& entity) { return Variant(dynamic_cast<const CCell&>(entity).CellID()); }};
}

/// The shown entities; the collection itself is not copied.
class EntityListView::Rows : public ui::ListRows {
 public:
  Rows(const EntityCollection& collection, std::shared_ptr<const std::vector<EntityColumn>> columns)
      : columns_(std::move(columns)) {
    entities_.reserve(static_cast<std::size_t>(collection.Count()));
    for (const auto& entity : collection) entities_.push_back(entity);
  }

  const std::vector<std::shared_ptr<CEntity>>& All() const { return entities_; }

  std::size_t Count() const override { return entities_.size(); }
  std::string Text(std::size_t row, std::size_t column) const override { return ToText(Value(row, column)); }
  std::int64_t Number(std::size_t row, std::size_t column) const override {
    return ToInt32(Value(row, column));
  }
  bool Checked(std::size_t row) const override {
    const auto* antenna = dynamic_cast<const CAntenna*>(entities_[row].get());
    return antenna && antenna->Selected();
  }

 private:
  Variant Value(std::size_t row, std::size_t column) const {
    return (*columns_)[column].value(*entities_[row]);
  }

  std::vector<std::shared_ptr<CEntity>> entities_;
  std::shared_ptr<const std::vector<EntityColumn>> columns_;
};

EntityListView::EntityListView(ui::Container* parent, std::string name)
    : ListView(parent, std::move(name)),
      collection_(std::make_shared<EntityCollection>()),
      columns_(std::make_shared<std::vector<EntityColumn>>()) {}

const std::vector<std::shared_ptr<CEntity>>& EntityListView::Shown() const {
  static const std::vector<std::shared_ptr<CEntity>> none;
  return rows_ ? rows_->All() : none;
}

void EntityListView::AddColumns(std::vector<EntityColumn> columns) {
  std::vector<ui::ListColumn> looks;
  looks.reserve(columns.size());
  for (const EntityColumn& column : columns) looks.push_back(column.look);
  ClearDisplay();
  columns_ = std::make_shared<std::vector<EntityColumn>>(std::move(columns));
  SetColumns(std::move(looks));
}

void EntityListView::Display() {
  rows_ = std::make_shared<Rows>(Required(collection_), columns_);
  SetRows(rows_);
}

void EntityListView::ClearDisplay() {
  rows_.reset();
  SetRows(nullptr);
}

void EntityListView::Redraw() {
  SetRows(rows_);
}

}  // namespace kiv
