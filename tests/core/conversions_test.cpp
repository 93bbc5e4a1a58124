#include "core/conversions.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "core/keyed_collection.h"
#include "core/numeric_text.h"
#include "host/sql_rendering.h"

namespace kiv {
namespace {

ErrorNumber NumberRaisedBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.Number();
  }
  ADD_FAILURE() << "nothing was raised";
  return {};
}

TEST(Variants, ConvertToWholeNumbers) {
  EXPECT_EQ(ToInt32(Variant("  -12 ")), -12);
  EXPECT_EQ(ToInt32(Variant(2.5)), 2);
  EXPECT_EQ(ToInt32(Variant(3.5)), 4);
  EXPECT_EQ(ToInt32(Variant("1.5")), 2);
  EXPECT_EQ(ToInt32(Variant(" -2.50 ")), -2);
  EXPECT_EQ(ToInt32(Variant(true)), -1);
  EXPECT_EQ(ToInt32(Variant(std::int64_t{2147483647})), 2147483647);
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
  EXPECT_EQ(ToText(Variant()), "");
  EXPECT_EQ(ToText(Variant(-7)), "-7");
  EXPECT_EQ(ToText(Variant("Grüße")), "Grüße");
  EXPECT_EQ(NumberRaisedBy([] { ToText(Variant(std::make_shared<Object>())); }), ErrorNumber::TypeMismatch);
}

TEST(NumericText, ReadsWhatUsersType) {
  EXPECT_EQ(ParseNumber(" +30 "), 30);
  EXPECT_EQ(ParseNumber("9.5"), 10);
  EXPECT_EQ(ParseNumber("10.5"), 10);
  EXPECT_EQ(ParseNumber("10.50001"), 11);
  EXPECT_EQ(ParseNumber(".5"), 0);
  EXPECT_EQ(ParseNumber("5."), 5);
  EXPECT_EQ(ParseNumber("-1.5"), -2);
  for (const char* text : {"", "  ", ".", "-", "1,5", "1 2", "0x10", "1e3", "--1", "1.2.3", "１"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
}

TEST(NumericText, NumbersBeyondTheirTypeFailRangesAndRaiseNothing) {
  EXPECT_FALSE(IsNumberBetween("99999999999999999999", 1, 2147483647));
  EXPECT_FALSE(IsNumberBetween("-99999999999999999999", -2147483647, 10));
  EXPECT_EQ(NumberOr("99999999999999999999", 1), 2147483647);
  EXPECT_EQ(NumberOr("x", 30), 30);
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
  EXPECT_EQ(numbers.Count(), 3);

  const std::shared_ptr<KeyedCollection<int>> unset;
  EXPECT_EQ(NumberRaisedBy([&] { Required(unset).begin(); }), ErrorNumber::ObjectNotSet);
}

}  // namespace
}  // namespace kiv
