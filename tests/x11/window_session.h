#pragma once

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>

#include "client/window/main_window.h"
#include "database/sql_connection.h"
#include "support/temp_folder.h"
#include "x11/real_hand.h"

namespace kiv::test {

/// The program in its window on the X server, with the sample network in a new database file, and a hand that
/// works it. The case itself runs beside the thread of the windows.
class WindowSession : public ::testing::Test {
 protected:
  WindowSession();
  ~WindowSession() override;

  /// Begins a study from the empty list, of a scenario that is made for it.
  void BeginStudy(const QString& button, const QString& name);
  /// Shows these elements of the network only, as the search box finds them.
  void SearchNetwork(const QString& text);
  /// The row of an element in the tree.
  RealHand::Place Element(std::int32_t instance) const;
  std::vector<std::string> DragToList(std::int32_t instance, const QString& list);
  void Save();
  /// What a refused save says.
  std::string RefusalOfSave();

  /// The texts in a list, as "1|2|37;".
  std::string ListText(const QString& name) const;
  /// Every box, button and list of the open study and what it shows.
  std::map<std::string, std::string> ShownFields() const;
  /// Rows as another program finds them in the file.
  std::string Rows(const std::string& columns, const std::string& table);

  TempFolder folder_;
  RealHand user_;

 private:
  const std::string file_ = folder_.File("studies.db");
  std::shared_ptr<database::SqlConnection> other_;  // than the program's own connection
  std::unique_ptr<client::Program> program_;
  std::unique_ptr<client::MainWindow> window_;
};

}  // namespace kiv::test
