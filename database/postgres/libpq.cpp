#include "database/postgres/libpq.h"

#include <dlfcn.h>

#include "base/error.h"

namespace kiv::database {

namespace {

void* Required(void* found) {
  if (!found) throw Error(ErrorNumber::DatabaseFailure, dlerror());
  return found;
}

Libpq Load() {
  void* const library = Required(dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL));
  Libpq functions;
#define KIV_FIND(function) \
  functions.function = reinterpret_cast<decltype(&::function)>(Required(dlsym(library, #function)));
  KIV_LIBPQ_FUNCTIONS(KIV_FIND)
#undef KIV_FIND
  return functions;
}

}  // namespace

const Libpq& Pq() {
  static const Libpq functions = Load();
  return functions;
}

}  // namespace kiv::database
