#include "host/scope.h"

#include <utility>

namespace kiv::host {

namespace {

/// Fills what the services lack.
void Complete(Services& services, const Services& rest) {
  const auto fill = [](auto& service, const auto& other) {
    if (!service) service = other;
  };
  fill(services.errorReporter, rest.errorReporter);
  fill(services.messageBoxes, rest.messageBoxes);
  fill(services.settings, rest.settings);
  fill(services.session, rest.session);
  fill(services.documents, rest.documents);
  fill(services.fileNameRules, rest.fileNameRules);
  fill(services.folderChooser, rest.folderChooser);
  fill(services.beeper, rest.beeper);
  fill(services.dragSource, rest.dragSource);
}

}  // namespace

Scope::Scope() : events_(std::make_shared<Events>()) {
  Take({});
}

Scope::Scope(Services services, Rest rest) : outer_(&Current()) {
  if (rest == Rest::AsBefore) {
    Complete(services, outer_->services_);
    events_ = outer_->events_;
  } else {
    events_ = std::make_shared<Events>();
  }
  const bool sharesDatabase = rest == Rest::AsBefore && !services.openDatabase;
  Take(std::move(services));
  if (sharesDatabase) database_ = outer_->database_;
  Innermost() = this;
}

Scope::~Scope() {
  Scope** place = &Innermost();
  while (*place && *place != this)
    place = &(*place)->outer_;  // this is the first, unless the order was broken
  if (*place) *place = outer_;
}

void Scope::Take(Services services) {
  services_ = std::move(services);
  database_ = std::make_shared<DatabaseSlot>(DatabaseSlot{services_.openDatabase, nullptr});
}

/// Never destroyed: at the end of a process nobody can tell who still needs it.
Scope& Scope::OfProcess() {
  static Scope& scope = *new Scope();
  return scope;
}

Scope*& Scope::Innermost() {
  static Scope* innermost = &OfProcess();
  return innermost;
}

Scope& Scope::Current() {
  return *Innermost();
}

Database& Scope::TheDatabase() const {
  std::shared_ptr<Database>& database = database_->opened;
  if (!database && database_->open) database = database_->open();
  if (!database) throw Error(ErrorNumber::ObjectNotSet, "The host has given no database.");
  return *database;
}

void Scope::ReleaseDatabase() const {
  database_->opened.reset();
}

void InstallServices(Services services) {
  Scope::OfProcess().Take(std::move(services));
}

const Services& CurrentServices() {
  return Scope::Current().Given();
}

Events& TheEvents() {
  return Scope::Current().HostEvents();
}

}  // namespace kiv::host
