#pragma once

#include <functional>
#include <memory>

#include "host/services.h"

namespace kiv::host {

/// What a scope has where it was given nothing.
enum class Rest {
  Missing,  ///< nothing: it is a host of its own, with events of its own
  AsBefore  ///< what the scope around it has: services, events and, without a factory of its own, the
            ///< database
};

/// The services of a host, current from here on until it ends; the ones before are current again then. Scopes
/// nest, and end in the opposite order. For one thread.
class Scope {
 public:
  explicit Scope(Services services, Rest rest = Rest::Missing);
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  ~Scope();

  /// The innermost; what InstallServices gave where there is none.
  static Scope& Current();

  const Services& Given() const { return services_; }
  Events& HostEvents() const { return *events_; }
  /// The one database object, made by the factory on first use. Raises error 91 when there is none to be had.
  Database& TheDatabase() const;
  /// Lets go of the database object; the next use asks the factory again.
  void ReleaseDatabase() const;

 private:
  /// Shared with the scopes inside that have no factory of their own.
  struct DatabaseSlot {
    std::function<std::shared_ptr<Database>()> open;
    std::shared_ptr<Database> opened;
  };

  Scope();  // of the process, around all others
  static Scope& OfProcess();
  static Scope*& Innermost();
  void Take(Services services);
  friend void InstallServices(Services services);

  Services services_;
  std::shared_ptr<Events> events_;
  std::shared_ptr<DatabaseSlot> database_;
  Scope* outer_ = nullptr;
};

}  // namespace kiv::host
