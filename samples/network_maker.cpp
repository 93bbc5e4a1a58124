#include "samples/network_maker.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <string_view>
#include <variant>
#include <vector>

#include "store/network/network_tables.h"

namespace kiv::samples {

namespace {

using store::NetworkTableId;

constexpr std::array<std::string_view, 8> kSystemNames = {"Northgate", "Riverside", "Lakeland",  "Eastmoor",
                                                          "Westfield", "Highlands", "Southport", "Midvale"};
constexpr std::array<std::string_view, 12> kTowns = {"Harbour",  "Old Town", "Airport",   "University",
                                                     "Castle",   "Docks",    "Park Hill", "Cathedral",
                                                     "Fairview", "Mills",    "Junction",  "Bay"};
constexpr std::array<std::string_view, 24> kPlaces = {
    "Mill",   "Station", "Church",  "Bridge", "Market", "Queen",  "Victoria",    "Garden",
    "School", "Tower",   "Stadium", "Forest", "Quarry", "Canal",  "Orchard",     "Abbey",
    "Museum", "Lake",    "Summit",  "Valley", "Spring", "Meadow", "Caf\xC3\xA9", "Lighthouse"};
constexpr std::array<std::string_view, 12> kStreets = {"Road", "Street", "Lane",  "Square", "Hill",  "Avenue",
                                                       "Gate", "Row",    "Drive", "Court",  "Green", "Wharf"};
constexpr std::array<std::string_view, 6> kSides = {"", "", "", " North", " South", ", rooftop"};
constexpr std::array<std::string_view, 10> kTechnologies = {"AMPS", "AMPS", "TDMA", "TDMA",      "TDMA",
                                                            "CDMA", "CDMA", "CDMA", "AMPS/CDMA", "AMPS/TDMA"};
constexpr std::int32_t kCgsasOfEcp = 3;

/// Numbers that look random and are the same on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  /// From 0 to one less than `sides`.
  std::int32_t Roll(std::size_t sides) {
    state_ += 0x9E3779B97F4A7C15;
    std::uint64_t mixed = (state_ ^ (state_ >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return static_cast<std::int32_t>((mixed ^ (mixed >> 31)) % sides);
  }
  bool OneIn(std::size_t sides) { return Roll(sides) == 0; }
  template <std::size_t kCount>
  std::string_view Pick(const std::array<std::string_view, kCount>& names) {
    return names[static_cast<std::size_t>(Roll(kCount))];
  }

 private:
  std::uint64_t state_;
};

class CsvFile {
 public:
  using Value = std::variant<std::int32_t, std::string>;

  CsvFile(const std::string& folder, const store::NetworkTable& table)
      : path_(std::filesystem::path(folder) / store::FileNameOf(table)), out_(path_, std::ios::binary) {
    for (const store::NetworkColumn& column : table.columns) Add(std::string(column.name));
    EndLine();
  }

  void AddLine(const std::vector<Value>& values) {
    for (const Value& value : values) {
      const auto* number = std::get_if<std::int32_t>(&value);
      Add(number ? std::to_string(*number) : std::get<std::string>(value));
    }
    EndLine();
  }

  void Close() {
    out_.close();
    if (!out_) throw std::runtime_error("The file \"" + path_.string() + "\" cannot be written.");
  }

 private:
  void Add(const std::string& text) {
    if (!atStart_) out_ << ',';
    atStart_ = false;
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
      out_ << text;
      return;
    }
    out_ << '"';
    for (const char character : text) out_ << (character == '"' ? "\"" : "") << character;
    out_ << '"';
  }
  void EndLine() {
    out_ << '\n';
    atStart_ = true;
  }

  std::filesystem::path path_;
  std::ofstream out_;
  bool atStart_ = true;
};

struct Place {
  std::int32_t system = 0;
  std::int32_t ecp = 0;
  std::int32_t cell = 0;
};

class NetworkMaker {
 public:
  NetworkMaker(const NetworkSize& size, const std::string& folder) : size_(size), dice_(size.seed) {
    files_.reserve(store::kNetworkTableCount);
    for (const store::NetworkTable& table : store::NetworkTables()) files_.emplace_back(folder, table);
  }

  void Make() {
    // The antennas' instances come after those of all entities.
    nextAntenna_ = nextEntity_ + size_.systems + size_.ecps + size_.cells;
    std::int32_t ecpsDone = 0;
    for (std::int32_t system = 1; system <= size_.systems; ++system) {
      const std::int32_t instance = nextEntity_++;
      const std::string name(kSystemNames[static_cast<std::size_t>(system - 1) % kSystemNames.size()]);
      File(store::NetworkTableId::Entities)
          .AddLine({instance, std::string(store::kSystemKind), "", system, "", "", name, ""});
      const std::int32_t ecps = Share(size_.ecps, size_.systems, system - 1);
      for (std::int32_t ecp = 1; ecp <= ecps; ++ecp) AddEcp({system, ecp, 0}, instance, ecpsDone++);
    }
    for (CsvFile& file : files_) file.Close();
  }

 private:
  /// What one of several gets of a number that is dealt out as evenly as possible.
  static std::int32_t Share(std::int32_t all, std::int32_t among, std::int32_t index) {
    return all / among + (index < all % among ? 1 : 0);
  }

  CsvFile& File(store::NetworkTableId id) { return files_[static_cast<std::size_t>(id)]; }

  void AddEcp(const Place& place, std::int32_t systemInstance, std::int32_t index) {
    const std::int32_t instance = nextEntity_++;
    const std::string name(kTowns[static_cast<std::size_t>(index) % kTowns.size()]);
    File(store::NetworkTableId::Entities)
        .AddLine(
            {instance, std::string(store::kEcpKind), systemInstance, place.system, place.ecp, "", name, ""});
    AddFeatures(place, instance, index);
    for (std::int32_t cgsa = 1; cgsa <= kCgsasOfEcp; ++cgsa) {
      const std::int32_t carriers = 2 + dice_.Roll(3);
      for (std::int32_t carrier = 1; carrier <= carriers; ++carrier) {
        File(store::NetworkTableId::CgsaCarriers).AddLine({carrier, place.system, place.ecp, cgsa});
      }
    }
    Place cell = place;
    for (std::int32_t left = Share(size_.cells, size_.ecps, index); left > 0; --left) {
      cell.cell += dice_.OneIn(8) ? 2 : 1;  // numbers of cells that were taken down stay free
      AddCell(cell, systemInstance, instance);
    }
  }

  /// Every fourth ECP has no row; of the others one traces calls of many directory numbers, one of a single
  /// number, and one traces no calls.
  void AddFeatures(const Place& place, std::int32_t instance, std::int32_t index) {
    enum Case { kManyNumbers, kOneNumber, kNoTrace, kNoRow };
    const int which = index % 4;
    if (which == kNoRow) return;
    const auto flag = [](bool active) { return std::string(active ? "Y" : "N"); };
    const auto any = [&] { return dice_.OneIn(4) ? std::string() : flag(dice_.OneIn(2)); };
    const std::string host = "omp" + std::to_string(place.system) + "-" + std::to_string(place.ecp);
    const std::string f121 = any();
    const std::string f276 = any();
    const std::string f297 = any();
    const std::string f368 = any();
    const std::string f430 = any();
    const std::string f545 = any();
    const std::string f559 = any();
    File(store::NetworkTableId::Features)
        .AddLine({instance, host, f121, flag(which != kNoTrace), f276, f297, f368, f430,
                  flag(which == kManyNumbers), f545, f559});
  }

  void AddCell(const Place& place, std::int32_t systemInstance, std::int32_t ecpInstance) {
    std::string name(dice_.Pick(kPlaces));
    name += " " + std::string(dice_.Pick(kStreets));
    name += dice_.Pick(kSides);
    const std::string technology(dice_.Pick(kTechnologies));
    File(store::NetworkTableId::Entities)
        .AddLine({nextEntity_++, std::string(store::kCellKind), ecpInstance, place.system, place.ecp,
                  place.cell, name, technology});
    const std::string key =
        std::to_string(place.system) + "-" + std::to_string(place.ecp) + "-" + std::to_string(place.cell);
    File(store::NetworkTableId::Contexts).AddLine({1, key, systemInstance});
    File(store::NetworkTableId::Contexts).AddLine({store::kOwnerContext, key, ecpInstance});
    AddAntennas(place);
    if (technology.find("CDMA") != std::string::npos) AddCarriers(place);
  }

  void AddAntennas(const Place& place) {
    const std::int32_t antennas = 3 + dice_.Roll(4);
    for (std::int32_t antenna = 1; antenna <= antennas; ++antenna) {
      const std::int32_t instance = dice_.OneIn(20) ? 0 : nextAntenna_++;  // some were never registered
      File(store::NetworkTableId::Antennas)
          .AddLine({instance, place.system, place.ecp, place.cell, antenna, dice_.OneIn(12) ? "n" : "y"});
    }
  }

  void AddCarriers(const Place& place) {
    const std::int32_t cgsa = 1 + dice_.Roll(kCgsasOfEcp);
    File(store::NetworkTableId::CgsaCells).AddLine({place.system, place.ecp, cgsa, place.cell});
    if (dice_.OneIn(3)) return;  // it has the carriers of its CGSA
    const std::int32_t carriers = 1 + dice_.Roll(3);
    std::int32_t key = 0;
    for (std::int32_t carrier = 1; carrier <= carriers; ++carrier) {
      for (std::int32_t channels = 2 + dice_.Roll(3); channels > 0; --channels) {
        File(store::NetworkTableId::CarrierChannels)
            .AddLine({carrier, place.system, place.ecp, place.cell, ++key});
      }
    }
  }

  NetworkSize size_;
  Dice dice_;
  std::vector<CsvFile> files_;
  std::int32_t nextEntity_ = 1001;
  std::int32_t nextAntenna_ = 0;
};

}  // namespace

void WriteNetwork(const NetworkSize& size, const std::string& folder) {
  constexpr std::int32_t kMostCells = 10'000'000;
  if (size.systems < 1 || size.ecps < size.systems || size.cells < 0 || size.cells > kMostCells) {
    throw std::runtime_error("A network has at least one system, an ECP for each, and up to " +
                             std::to_string(kMostCells) + " cells.");
  }
  std::filesystem::create_directories(folder);
  NetworkMaker(size, folder).Make();
}

}  // namespace kiv::samples
