#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kiv {

namespace detail {

class SlotList;

/// One handler of a signal, without regard to what the signal carries.
struct SlotState {
  std::weak_ptr<SlotList> list = {};
  bool connected = true;
};

/// The handlers of one signal in the order of connecting. An ended one goes at once, or when the last loop
/// has left the list; what it captured may then end others in turn.
class SlotList {
 public:
  std::size_t Count() const { return slots_.size(); }
  const std::shared_ptr<SlotState>& At(std::size_t place) const { return slots_[place]; }
  void Add(std::shared_ptr<SlotState> slot) { slots_.push_back(std::move(slot)); }

  void End(SlotState& slot) {
    slot.connected = false;
    if (loops_ == 0) DropEnded();
  }
  void EndAll() {
    for (const auto& slot : slots_) slot->connected = false;
  }

  /// A loop over the list.
  class Loop {
   public:
    explicit Loop(SlotList& list) : list_(list) { ++list_.loops_; }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;
    ~Loop() {
      if (--list_.loops_ == 0) list_.DropEnded();
    }

   private:
    SlotList& list_;
  };

 private:
  void DropEnded() {
    const auto isConnected = [](const auto& slot) { return slot->connected; };
    const auto ended = std::stable_partition(slots_.begin(), slots_.end(), isConnected);
    const std::vector<std::shared_ptr<SlotState>> dropped(ended, slots_.end());
    slots_.erase(ended, slots_.end());
  }  // destroys the handlers, now that the list is in order

  std::vector<std::shared_ptr<SlotState>> slots_;
  int loops_ = 0;
};

}  // namespace detail

/// Handle of one connection; copyable, does nothing when it goes away.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::weak_ptr<detail::SlotState> slot) : slot_(std::move(slot)) {}

  /// Harmless after the signal or the connection is gone.
  void Disconnect() {
    const auto slot = std::exchange(slot_, {}).lock();
    if (!slot || !slot->connected) return;
    if (const auto list = slot->list.lock()) list->End(*slot);
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
class [[nodiscard]] ScopedConnection {
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
    if (list_) list_->EndAll();
  }

  Connection Connect(Handler handler) {
    if (!list_) list_ = std::make_shared<detail::SlotList>();
    auto slot = std::make_shared<Slot>();
    slot->list = list_;
    slot->handler = std::move(handler);
    list_->Add(slot);
    return Connection(slot);
  }

  void Raise(Args... args) const {
    if (!list_) return;
    const std::shared_ptr<detail::SlotList> list = list_;
    const detail::SlotList::Loop loop(*list);
    const std::size_t count = list->Count();
    for (std::size_t i = 0; i < count; ++i) {
      const std::shared_ptr<detail::SlotState> slot = list->At(i);
      if (slot->connected) static_cast<const Slot&>(*slot).handler(args...);
    }
  }

 private:
  struct Slot : detail::SlotState {
    Handler handler;
  };

  std::shared_ptr<detail::SlotList> list_;  // made by the first connection: most events have no listener
};

}  // namespace kiv
