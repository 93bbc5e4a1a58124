#include <QLabel>

#include "client/demo/demo.h"
#include "client/window/entity_tree.h"

namespace kiv::client {

void ShowNetworkImport(MainWindow& window, const UserHand& user) {
  user.During([&] { window.ImportNetwork(); },
              [&](QWidget& dialog) {
                user.Fill("networkFolder", KIV_SAMPLE_NETWORK);
                user.Click("networkRun");
                user.TakePicture("16-network-imported");
                dialog.close();
              });
  Expect(window.Network().Model().ShownCount(store::EntityKind::Ecp) == 12,
         "The ECPs and their cells are in the tree.");
}

void AddFromNetwork(const UserHand& user, const QString& search, int down, int more) {
  user.Fill("networkSearch", search);
  user.Press(Qt::Key_Return);
  user.Press(Qt::Key_Home);  // the system
  for (int step = 0; step < down; ++step) user.Press(Qt::Key_Down);
  for (int step = 0; step < more; ++step) user.Press(Qt::Key_Down, Qt::ShiftModifier);
  user.Press(Qt::Key_Return);
}

}  // namespace kiv::client
