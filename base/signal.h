#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kiv {

namespace detail {
struct SlotState {
  bool connected = true;
};
}  // namespace detail

/// Handle of one connection; copyable, does nothing when it goes away.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::weak_ptr<detail::SlotState> slot) : slot_(std::move(slot)) {}

  /// Harmless after the signal or the connection is gone.
  void Disconnect() {
    if (const auto slot = slot_.lock()) slot->connected = false;
    slot_.reset();
  }

  /// Whether the handler would still be called: the signal exists and nobody disconnected it.
  bool Connected() const {
    const auto slot = slot_.lock();
    return slot && slot->connected;
  }

 private:
  std::weak_ptr<detail::SlotState> slot_;
};

/// A connection that ends with its owner.
class ScopedConnection {
 public:
  ScopedConnection() = default;
  ScopedConnection(Connection connection) : connection_(std::move(connection)) {}
  ScopedConnection(ScopedConnection&& other) noexcept : connection_(std::exchange(other.connection_, {})) {}
  ScopedConnection& operator=(ScopedConnection&& other) noexcept {
    connection_.Disconnect();
    connection_ = std::exchange(other.connection_, {});
    return *this;
  }
  ~ScopedConnection() { connection_.Disconnect(); }

  bool Connected() const { return connection_.Connected(); }

 private:
  Connection connection_;
};

/// An event that any number of handlers may listen to, for one thread.
///
/// Handlers run in the order of connecting. While the event is being raised a handler may connect (first
/// called by the next raise), disconnect any handler (no longer called), raise again, or destroy the signal
/// (the handlers that have not run yet do not run any more).
template <class... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;
  ~Signal() {
    if (!handlers_) return;
    for (const auto& slot : handlers_->all) slot->connected = false;
  }

  Connection Connect(Handler handler) {
    if (!handlers_) handlers_ = std::make_shared<Handlers>();
    auto slot = std::make_shared<Slot>();
    slot->handler = std::move(handler);
    handlers_->all.push_back(slot);
    return Connection(slot);
  }

  void Raise(Args... args) const {
    if (!handlers_) return;
    const std::shared_ptr<Handlers> handlers = handlers_;
    const RaiseGuard guard(*handlers);
    const std::size_t count = handlers->all.size();
    for (std::size_t i = 0; i < count; ++i) {
      const std::shared_ptr<Slot> slot = handlers->all[i];
      if (slot->connected) slot->handler(args...);
    }
  }

 private:
  struct Slot : detail::SlotState {
    Handler handler;
  };
  struct Handlers {
    std::vector<std::shared_ptr<Slot>> all;
    int raising = 0;
  };
  /// Ended connections are dropped only when no loop stands on the list.
  class RaiseGuard {
   public:
    explicit RaiseGuard(Handlers& handlers) : handlers_(handlers) { ++handlers_.raising; }
    RaiseGuard(const RaiseGuard&) = delete;
    RaiseGuard& operator=(const RaiseGuard&) = delete;
    ~RaiseGuard() {
      if (--handlers_.raising == 0)
        std::erase_if(handlers_.all, [](const auto& slot) { return !slot->connected; });
    }

   private:
    Handlers& handlers_;
  };

  std::shared_ptr<Handlers> handlers_;  // made by the first connection: most events have no listener
};

}  // namespace kiv
