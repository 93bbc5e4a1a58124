#include "store/local_time.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace kiv::store {

std::string LocalTimeText(const std::string& utc) {
  const QDateTime time = QDateTime::fromString(QString::fromStdString(utc), Qt::ISODate);
  return time.isValid() ? QLocale().toString(time.toLocalTime(), QLocale::ShortFormat).toStdString() : utc;
}

}  // namespace kiv::store
