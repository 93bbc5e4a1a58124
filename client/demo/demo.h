#pragma once

#include <QString>
#include <memory>
#include <string>

#include "client/program.h"
#include "client/window/main_window.h"
#include "host/database.h"
#include "support/user_hand.h"

/// The demonstration: one whole study of each kind with a user's keys and clicks, told as it goes. Whatever
/// is not as it should be raises std::runtime_error.
namespace kiv::client {

inline constexpr int kUntilMarked = 400;  ///< milliseconds; live marks follow the typing with a short delay

/// Says what was seen.
void Expect(bool condition, const char* what);
std::shared_ptr<host::Recordset> Rows(const Program& program, const std::string& query);

/// Sees that the study is saved, closes it and opens it from the list.
void ReopenSaved(const MainWindow& window, const UserHand& user, const QString& pictureOfList = {});

/// Searches the tree, goes so many rows down from the first one, and adds what is there with so many more
/// below it to the study.
void AddFromNetwork(const UserHand& user, const QString& search, int down, int more);

void ShowNetworkImport(MainWindow& window, const UserHand& user);

// Each starts and ends at the list of studies.
void ShowHomStudy(const Program& program, MainWindow& window, const UserHand& user,
                  const QString& dataFolder);
void ShowPlmStudy(const Program& program, MainWindow& window, const UserHand& user,
                  const QString& dataFolder);
void ShowRfcStudy(const Program& program, MainWindow& window, const UserHand& user,
                  const QString& dataFolder);
void ShowVcsaStudy(const Program& program, MainWindow& window, const UserHand& user,
                   const QString& dataFolder);

}  // namespace kiv::client
