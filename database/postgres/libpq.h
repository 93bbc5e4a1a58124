#pragma once

#include <libpq-fe.h>

/// The functions of PostgreSQL's client library that the adapter calls.
#define KIV_LIBPQ_FUNCTIONS(FUNCTION) \
  FUNCTION(PQclear)                   \
  FUNCTION(PQconnectdbParams)         \
  FUNCTION(PQconninfoFree)            \
  FUNCTION(PQconninfoParse)           \
  FUNCTION(PQconsumeInput)            \
  FUNCTION(PQenterPipelineMode)       \
  FUNCTION(PQerrorMessage)            \
  FUNCTION(PQexec)                    \
  FUNCTION(PQexecParams)              \
  FUNCTION(PQexitPipelineMode)        \
  FUNCTION(PQfinish)                  \
  FUNCTION(PQfname)                   \
  FUNCTION(PQftype)                   \
  FUNCTION(PQgetResult)               \
  FUNCTION(PQgetisnull)               \
  FUNCTION(PQgetlength)               \
  FUNCTION(PQgetvalue)                \
  FUNCTION(PQisBusy)                  \
  FUNCTION(PQnfields)                 \
  FUNCTION(PQntuples)                 \
  FUNCTION(PQparameterStatus)         \
  FUNCTION(PQpipelineSync)            \
  FUNCTION(PQreset)                   \
  FUNCTION(PQresultErrorField)        \
  FUNCTION(PQresultStatus)            \
  FUNCTION(PQsendQueryParams)         \
  FUNCTION(PQsetNoticeProcessor)      \
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

}  // namespace kiv::database
