#include "database/open_error.h"
#include "database/postgres/open_postgres.h"
#include "database/postgres/postgres_url.h"

namespace kiv::database {

std::shared_ptr<SqlConnection> OpenPostgresStudies(const std::string& url, OpenMode) {
  throw OpenError(OpenProblem::WithoutPostgres, WithoutPassword(url));
}

}  // namespace kiv::database
