#include "core/conversions.h"

#include <memory>
#include <random>
#include <set>
#include <string>

#include "core/keyed_collection.h"
#include "core/numeric_text.h"
#include "host/sql_rendering.h"
#include "support/raised.h"

namespace kiv {
namespace {

using test::NumberRaisedBy;

TEST(Variants, ConvertToWholeNumbers) {
  const std::pair<Variant, int> numbers[] = {{"  -12 ", -12},
                                             {2.5, 2},
                                             {3.5, 4},
                                             {"1.5", 2},
                                             {" -2.50 ", -2},
                                             {true, -1},
                                             {std::int64_t{2147483647}, 2147483647}};
  for (const auto& [value, number] : numbers) EXPECT_EQ(ToInt32(value), number);
  for (const Variant& bad : {Variant(), Variant("1.5.2"), Variant("12a"), Variant("")}) {
    EXPECT_EQ(NumberRaisedBy([&] { ToInt32(bad); }), ErrorNumber::TypeMismatch);
  }
  for (const Variant& big : {Variant("2147483648"), Variant(std::int64_t{-2147483649}), Variant(1e300),
                             Variant("99999999999999999999999")}) {
    EXPECT_EQ(NumberRaisedBy([&] { ToInt32(big); }), ErrorNumber::Overflow);
  }
}

TEST(Variants, ConvertToTextsAndChoices) {
  for (const Variant& yes : {Variant("Y"), Variant(true), Variant(-1), Variant(1.0), Variant(0.5)}) {
    EXPECT_TRUE(host::RenderedAsTrue(yes));
  }
  for (const Variant& no :
       {Variant("y"), Variant("1"), Variant(false), Variant(0), Variant(0.0), Variant()}) {
    EXPECT_FALSE(host::RenderedAsTrue(no));
  }
  EXPECT_EQ(ToText(Variant()) + ToText(Variant(-7)) + ToText(Variant("Grüße")), "-7Grüße");
  EXPECT_EQ(NumberRaisedBy([] { ToText(Variant(std::make_shared<Object>())); }), ErrorNumber::TypeMismatch);
}

TEST(NumericText, ReadsWhatUsersType) {
  const std::pair<const char*, int> numbers[] = {{" +30 ", 30},    {"9.5", 10}, {"10.5", 10}, {"-1.5", -2},
                                                 {"10.50001", 11}, {".5", 0},   {"5.", 5}};
  for (const auto& [text, number] : numbers) EXPECT_EQ(ParseNumber(text), number) << text;
  for (const char* text : {"", "  ", ".", "-", "1,5", "1 2", "0x10", "1e3", "--1", "1.2.3", "１"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_EQ(NumberOr("x", 30), 30);
  // What is beyond the type fails ranges and raises nothing.
  EXPECT_FALSE(IsNumberBetween("99999999999999999999", 1, 2147483647));
  EXPECT_FALSE(IsNumberBetween("-99999999999999999999", -2147483647, 10));
  EXPECT_EQ(NumberOr("99999999999999999999", 1), 2147483647);
}

TEST(KeyedCollections, KeepOrderAndFindByExactKey) {
  KeyedCollection<int> numbers;
  for (const int number : {3, 1, 2})
    numbers.Add(std::make_shared<int>(number), "Cell:" + std::to_string(number));
  EXPECT_EQ(NumberRaisedBy([&] { numbers.Add(std::make_shared<int>(9), "Cell:1"); }),
            ErrorNumber::DuplicateKey);
  EXPECT_EQ(NumberRaisedBy([&] { numbers.Item("cell:1"); }), ErrorNumber::InvalidArgument);
  EXPECT_EQ(NumberRaisedBy([&] { numbers.Remove("Cell:4"); }), ErrorNumber::InvalidArgument);

  numbers.Remove("Cell:1");
  numbers.Add(std::make_shared<int>(4), "Cell:1");
  std::string order;
  for (const auto& number : numbers) order += std::to_string(*number);
  EXPECT_EQ(order, "324");
  EXPECT_EQ(*numbers.Item("Cell:1"), 4);

  // As many as need an index, added and removed in any order.
  std::mt19937 random(1);
  std::set<std::string> present;
  KeyedCollection<int> many;
  for (int round = 0; round < 3000; ++round) {
    const std::string key = std::to_string(random() % 64);
    if (present.contains(key)) {
      many.Remove(key);
      present.erase(key);
    } else {
      EXPECT_TRUE(many.AddNew(std::make_shared<int>(round), key));
      present.insert(key);
    }
    const std::string other = std::to_string(random() % 64);
    ASSERT_EQ(many.Contains(other), present.contains(other)) << "round " << round << ", key " << other;
    ASSERT_EQ(many.Count(), static_cast<int>(present.size()));
  }

  const std::shared_ptr<KeyedCollection<int>> unset;
  EXPECT_EQ(NumberRaisedBy([&] { Required(unset).begin(); }), ErrorNumber::ObjectNotSet);
}

}  // namespace
}  // namespace kiv
