#include "database/open_error.h"
#include "database/postgres/open_postgres.h"
#include "database/server_address.h"

namespace kiv::database {

std::shared_ptr<SqlConnection> OpenPostgresStudies(const std::string&, OpenMode, WaitHandler) {
  throw OpenError(OpenProblem::WithoutPostgres, kHiddenAddress);
}

}  // namespace kiv::database
