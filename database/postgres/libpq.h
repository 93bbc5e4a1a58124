#pragma once

#include <libpq-fe.h>

#include <memory>

/// The functions of PostgreSQL's client library that the adapter calls.
#define KIV_LIBPQ_FUNCTIONS(FUNCTION) \
  FUNCTION(PQcancel)                  \
  FUNCTION(PQclear)                   \
  FUNCTION(PQconnectPoll)             \
  FUNCTION(PQconnectStartParams)      \
  FUNCTION(PQconninfo)                \
  FUNCTION(PQconninfoFree)            \
  FUNCTION(PQconninfoParse)           \
  FUNCTION(PQconsumeInput)            \
  FUNCTION(PQenterPipelineMode)       \
  FUNCTION(PQerrorMessage)            \
  FUNCTION(PQexitPipelineMode)        \
  FUNCTION(PQfinish)                  \
  FUNCTION(PQflush)                   \
  FUNCTION(PQfname)                   \
  FUNCTION(PQfreeCancel)              \
  FUNCTION(PQftype)                   \
  FUNCTION(PQgetCancel)               \
  FUNCTION(PQgetResult)               \
  FUNCTION(PQgetisnull)               \
  FUNCTION(PQgetlength)               \
  FUNCTION(PQgetvalue)                \
  FUNCTION(PQhost)                    \
  FUNCTION(PQhostaddr)                \
  FUNCTION(PQisBusy)                  \
  FUNCTION(PQnfields)                 \
  FUNCTION(PQntuples)                 \
  FUNCTION(PQparameterStatus)         \
  FUNCTION(PQpipelineSync)            \
  FUNCTION(PQport)                    \
  FUNCTION(PQresultErrorField)        \
  FUNCTION(PQresultStatus)            \
  FUNCTION(PQsendPrepare)             \
  FUNCTION(PQsendQuery)               \
  FUNCTION(PQsendQueryParams)         \
  FUNCTION(PQsendQueryPrepared)       \
  FUNCTION(PQsetNoticeProcessor)      \
  FUNCTION(PQsetnonblocking)          \
  FUNCTION(PQsocket)                  \
  FUNCTION(PQstatus)                  \
  FUNCTION(PQtransactionStatus)

namespace kiv::database {

/// The library under the names of its functions. It is loaded when a server is asked for the first time: it
/// brings more than twenty others along, and those who use files would wait for all of them at every start.
struct Libpq {
#define KIV_MEMBER(function) decltype(&::function) function = nullptr;  // NOLINT(bugprone-macro-parentheses)
  KIV_LIBPQ_FUNCTIONS(KIV_MEMBER)
#undef KIV_MEMBER
};

/// Raises Error with the system's reason when the library is missing or too old.
const Libpq& Pq();

struct ConnectionDeleter {
  void operator()(PGconn* connection) const { Pq().PQfinish(connection); }
};
struct ResultDeleter {
  void operator()(PGresult* result) const { Pq().PQclear(result); }
};
using ConnectionHandle = std::unique_ptr<PGconn, ConnectionDeleter>;
using ResultHandle = std::unique_ptr<PGresult, ResultDeleter>;

}  // namespace kiv::database
