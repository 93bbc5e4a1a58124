// A network of 100,000 cells in the tree, and as many cells in a drop list, against the toolkit's own widgets
// filled with the same data. Each measurement is a process of its own, because memory that one gave back
// would be there for the next.

#include <QHeaderView>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>
#include <array>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

#include "client/window/entity_tree.h"
#include "client/window/window_program.h"
#include "database/open.h"
#include "editor/dd_list_view.h"
#include "paint.h"
#include "plain_lists.h"
#include "qt/control_views.h"
#include "samples/network_maker.h"
#include "store/network/network_import.h"
#include "support/child_process.h"

namespace kiv::bench {
namespace {

constexpr std::int32_t kCells = 100'000;
constexpr int kRounds = 7;

enum Figure : std::size_t { kFirstPaint, kOpenAll, kSortNumbers, kSortTexts, kSearch, kFigures };
constexpr std::array<const char*, kSearch> kNames = {"from nothing to the first paint",
                                                     "opening every branch", "sorting by numbers, both ways",
                                                     "sorting by texts, both ways"};

struct Measured {
  std::array<double, kFigures> milliseconds{};
  double megabytes = 0;
  int found = 0;
};

/// A view in a window of its own that is measured.
class Candidate {
 public:
  virtual ~Candidate() = default;
  /// Makes the view and fills it. The window is not shown yet.
  virtual QWidget& Make() = 0;
  virtual QAbstractItemView& View() = 0;
  virtual void Sort(int column, Qt::SortOrder order) = 0;
  /// Searches, and returns what was found.
  virtual int Search() = 0;
};

struct Contest {
  int numberColumn;
  int textColumn;
  bool hasBranches;
  const char* search;  ///< what a search is
  /// Each is made in a process of its own; the product first.
  std::vector<std::pair<const char*, std::function<std::unique_ptr<Candidate>()>>> candidates;
};

double MegabytesInUse() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) / 1024;
  }
  throw std::runtime_error("The system does not tell how much memory is in use.");
}

Measured Measure(const Contest& contest, Candidate& candidate) {
  Measured measured;
  QApplication::processEvents();
  const double before = MegabytesInUse();
  QWidget* window = nullptr;
  double& firstPaint = measured.milliseconds[kFirstPaint];
  firstPaint = Milliseconds([&] { window = &candidate.Make(); });
  QWidget& shown = *candidate.View().viewport();
  firstPaint += MillisecondsUntilPainted(shown, [&] {
    window->resize(600, 700);
    window->show();
  });
  if (contest.hasBranches) {
    measured.milliseconds[kOpenAll] =
        MillisecondsUntilPainted(shown, [&] { dynamic_cast<QTreeView&>(candidate.View()).expandAll(); });
  }
  measured.megabytes = MegabytesInUse() - before;
  const auto sort = [&](int column) {
    return MillisecondsUntilPainted(shown, [&] { candidate.Sort(column, Qt::DescendingOrder); }) +
           MillisecondsUntilPainted(shown, [&] { candidate.Sort(column, Qt::AscendingOrder); });
  };
  measured.milliseconds[kSortNumbers] = sort(contest.numberColumn);
  measured.milliseconds[kSortTexts] = sort(contest.textColumn);
  measured.milliseconds[kSearch] =
      MillisecondsUntilPainted(shown, [&] { measured.found = candidate.Search(); });
  return measured;
}

/// Runs one measurement in a process of its own.
Measured MeasureAlone(const std::function<Measured()>& measure) {
  const test::SharedWithChildren<Measured> shared;
  test::ChildProcess child([&] {
    int argc = 1;
    char name[] = "bench";
    char* argv[] = {name, nullptr};
    const client::Application application(argc, argv);
    client::Program program;
    client::StartWithWindow(program);
    *shared = measure();
    _exit(0);  // nothing that is waiting to be printed here is printed twice
  });
  if (child.Wait() != 0) throw std::runtime_error("A measurement failed.");
  return *shared;
}

void PrintContest(const char* title, const Contest& contest) {
  std::map<std::string, std::vector<Measured>> all;
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t i = 0; i < contest.candidates.size(); ++i) {
      // Another one begins each round.
      const auto& candidate =
          contest.candidates[(i + static_cast<std::size_t>(round)) % contest.candidates.size()];
      all[candidate.first].push_back(MeasureAlone([&] { return Measure(contest, *candidate.second()); }));
    }
  }
  const auto median = [&](const char* name, const auto& value) {
    std::vector<double> values;
    values.reserve(all[name].size());
    for (const Measured& measured : all[name]) values.push_back(value(measured));
    return Median(values);
  };
  const char* ours = contest.candidates.front().first;
  const auto print = [&](const char* what, const char* unit, const char* goal, const auto& value) {
    std::printf("  %-32s %s %7.1f %s", what, ours, median(ours, value), unit);
    for (std::size_t i = 1; i < contest.candidates.size(); ++i) {
      const char* other = contest.candidates[i].first;
      std::printf(", %s %7.1f %s ratio %.2f", other, median(other, value), unit,
                  median(ours, value) / median(other, value));
    }
    std::printf(" (%s)\n", goal);
  };
  std::printf("%s (median of %d):\n", title, kRounds);
  for (std::size_t figure = 0; figure < kFigures; ++figure) {
    if (figure == kOpenAll && !contest.hasBranches) continue;
    print(figure == kSearch ? contest.search : kNames[figure], "ms", "at most 1",
          [figure](const Measured& measured) { return measured.milliseconds[figure]; });
  }
  print("memory", "MB", "below 1", [](const Measured& measured) { return measured.megabytes; });
  for (const auto& [name, rounds] : all) {
    if (rounds[0].found == 0 || rounds[0].found != all[ours][0].found) {
      throw std::runtime_error("The search finds something else in " + name);
    }
  }
}

/// A name that only cells have, about one in three hundred.
constexpr const char* kWords = "quarry wharf";

class NetworkTree : public Candidate {
 public:
  explicit NetworkTree(std::shared_ptr<database::Connection> connection)
      : connection_(std::move(connection)) {}
  QWidget& Make() override {
    tree_ = std::make_unique<client::EntityTree>(drag_);
    tree_->SetEntities(store::NetworkEntities::Load(*connection_));
    return *tree_;
  }
  QAbstractItemView& View() override { return tree_->View(); }
  void Sort(int column, Qt::SortOrder order) override { tree_->View().sortByColumn(column, order); }
  int Search() override {
    tree_->findChild<QLineEdit*>(QStringLiteral("networkSearch"))->setText(QLatin1String(kWords));
    return static_cast<int>(tree_->Model().ShownCount(store::EntityKind::Cell));
  }

 private:
  std::shared_ptr<database::Connection> connection_;
  client::EntityDrag drag_;
  std::unique_ptr<client::EntityTree> tree_;
};

class PlainNetworkTree : public Candidate {
 public:
  explicit PlainNetworkTree(std::shared_ptr<database::Connection> connection)
      : connection_(std::move(connection)) {}
  QWidget& Make() override {
    tree_ = MakePlainNetwork(
        *connection_, {QStringLiteral("Element"), QStringLiteral("Name"), QStringLiteral("Technology")});
    return *tree_;
  }
  QAbstractItemView& View() override { return *tree_; }
  void Sort(int column, Qt::SortOrder order) override { tree_->sortItems(column, order); }
  int Search() override { return NarrowPlainNetwork(*tree_, QLatin1String(kWords)); }

 private:
  std::shared_ptr<database::Connection> connection_;
  std::unique_ptr<QTreeWidget> tree_;
};

/// 100,000 cells whose numbers stand in no order; only the last one has the greatest.
std::shared_ptr<EntityCollection> MakeCells() {
  constexpr std::array kTechnologies = {"AMPS", "TDMA", "CDMA", "AMPS/CDMA", "AMPS/TDMA"};
  auto cells = std::make_shared<EntityCollection>();
  for (std::int32_t i = 1; i <= kCells; ++i) {
    const std::int32_t number =
        i == kCells ? kCells : static_cast<std::int32_t>(i * 7919LL % (kCells - 1)) + 1;
    const auto cell = MakeCell(0, i, 1, 1 + i / 250, number);
    cell->SetTechType(kTechnologies[static_cast<std::size_t>(number) % kTechnologies.size()]);
    cells->Add(cell, cell->Key());
  }
  return cells;
}

const QStringList kCellCaptions = {QStringLiteral("System"), QStringLiteral("ECP"), QStringLiteral("Cell"),
                                   QStringLiteral("Technology")};
constexpr int kCellColumn = 2;

/// Types the number of a cell, as far as the view goes along.
int TypeLastNumber(QAbstractItemView& view) {
  view.setCurrentIndex(view.model()->index(0, kCellColumn));
  view.keyboardSearch(QString::number(kCells));
  return view.currentIndex().data().toInt();
}

class DropList : public Candidate {
 public:
  explicit DropList(std::shared_ptr<EntityCollection> cells) : cells_(std::move(cells)) {}
  QWidget& Make() override {
    const auto caption = [](int column) { return kCellCaptions[column].toStdString(); };
    list_.AddColumns({SystemColumn(caption(0)),
                      EcpColumn(caption(1)),
                      CellColumn(caption(kCellColumn)),
                      {{caption(3), 14}, [](const CEntity& cell) {
                         return Variant(dynamic_cast<const CCell&>(cell).TechType());
                       }}});
    list_.SetTheCollection(cells_);
    list_.Display();
    view_.reset(&dynamic_cast<QTreeView&>(*qt::MakeView(list_, nullptr)));
    return *view_;
  }
  QAbstractItemView& View() override { return *view_; }
  void Sort(int column, Qt::SortOrder order) override {
    list_.SortBy(column,
                 order == Qt::AscendingOrder ? ui::SortDirection::Ascending : ui::SortDirection::Descending);
  }
  int Search() override { return TypeLastNumber(*view_); }

 private:
  struct Page : ui::Container {
    Page() : Container(nullptr, "page") {}
    void Accept(ui::ControlVisitor&) override {}
  };

  std::shared_ptr<EntityCollection> cells_;
  Page page_;
  XDDListView list_{&page_, "list"};
  std::unique_ptr<QTreeView> view_;
};

/// A widget of the toolkit with the same rows.
template <class Widget>
class PlainList : public Candidate {
 public:
  using Maker = std::unique_ptr<Widget> (*)(const EntityCollection&, const QStringList&);

  PlainList(std::shared_ptr<EntityCollection> cells, Maker maker) : cells_(std::move(cells)), maker_(maker) {}
  QWidget& Make() override {
    widget_ = maker_(*cells_, kCellCaptions);
    return *widget_;
  }
  QAbstractItemView& View() override { return *widget_; }
  void Sort(int column, Qt::SortOrder order) override { widget_->sortItems(column, order); }
  int Search() override { return TypeLastNumber(*widget_); }

 private:
  std::shared_ptr<EntityCollection> cells_;
  Maker maker_;
  std::unique_ptr<Widget> widget_;
};

/// How to make a candidate from what these functions give.
template <class Made, class... Arguments>
std::function<std::unique_ptr<Candidate>()> Making(Arguments... arguments) {
  return [=] { return std::make_unique<Made>(arguments()...); };
}

int Run() {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  const std::string file = folder.filePath(QStringLiteral("bench.db")).toStdString();
  const std::string network = folder.filePath(QStringLiteral("network")).toStdString();
  const auto open = [&] { return database::OpenStudyDatabase(file, database::OpenMode::CreateIfMissing); };
  MeasureAlone([&] {
    samples::WriteNetwork({.systems = 8, .ecps = 400, .cells = kCells}, network);
    store::ImportNetwork(*open(), network);
    return Measured();
  });
  PrintContest("Tree of 100,000 cells, read from SQLite",
               {.numberColumn = 0,
                .textColumn = 1,
                .hasBranches = true,
                .search = "narrowing to what a word fits",
                .candidates = {{"this tree", Making<NetworkTree>(open)},
                               {"QTreeWidget", Making<PlainNetworkTree>(open)}}});
  const auto tree = [] { return &MakePlainTree; };
  const auto table = [] { return &MakePlainTable; };
  PrintContest("Drop list of 100,000 cells",
               {.numberColumn = kCellColumn,
                .textColumn = 3,
                .hasBranches = false,
                .search = "going to what is typed",
                .candidates = {{"this list", Making<DropList>(MakeCells)},
                               {"QTreeWidget", Making<PlainList<QTreeWidget>>(MakeCells, tree)},
                               {"QTableWidget", Making<PlainList<QTableWidget>>(MakeCells, table)}}});
  return 0;
}

}  // namespace
}  // namespace kiv::bench

int main() {
  return kiv::bench::Run();
}
