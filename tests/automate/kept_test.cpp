#include <string>

#include "driver.h"

namespace htr60::automation {
namespace {

// What waits until it is asked for.

constexpr std::size_t kMostEntries = 100'000;

TEST(Kept, OfTooManyAnswersTheOldestGo) {
  Driver driver(Driver::Captured());
  for (std::size_t i = 0; i < kMostEntries + 3; ++i) driver.Answer(static_cast<int>(i), "<Answer></Answer>");
  Json answer = driver.Ok({{"do", "answers"}});
  EXPECT_EQ(answer["dropped"], 3);
  ASSERT_EQ(answer["answers"].size(), kMostEntries);
  EXPECT_EQ(answer["answers"].front()["code"], 3);
  EXPECT_EQ(answer["answers"].back()["code"], kMostEntries + 2);
  driver.Answer(7, "");
  EXPECT_EQ(driver.Ok({{"do", "answers"}}), Json::parse(R"j({"ok":true,"answers":[{"code":7,"document":""}]})j"));
}

TEST(Kept, OfTooLongAnswersTheOldestGo) {
  Driver driver(Driver::Captured());
  const std::string document(10'000'000, 'x');
  for (int i = 0; i < 9; ++i) driver.Answer(i, document);
  Json answer = driver.Ok({{"do", "answers"}});
  EXPECT_EQ(answer["dropped"], 3);
  ASSERT_EQ(answer["answers"].size(), 6U);
  EXPECT_EQ(answer["answers"][0]["code"], 3);
  EXPECT_EQ(answer["answers"][5]["document"], document);
  driver.Answer(9, document);
  driver.Answer(10, std::string(70'000'000, 'y'));
  answer = driver.Ok({{"do", "answers"}});
  EXPECT_EQ(answer["dropped"], 1);
  ASSERT_EQ(answer["answers"].size(), 1U);  // the newest stays, however long
  EXPECT_EQ(answer["answers"][0]["code"], 10);
}

TEST(Kept, TheRequestsOfALongPollAreBounded) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Advance(2000);
  driver.Activate("Observe");
  driver.Sent();
  driver.Advance(1'501'500'000);  // a poll every 15 s
  const Json answer = driver.Ok({{"do", "requests"}});
  EXPECT_EQ(answer["dropped"], 100);
  ASSERT_EQ(answer["requests"].size(), kMostEntries);
  EXPECT_EQ(answer["requests"].back()["code"], "26");
  EXPECT_EQ(answer["requests"].back()["attributes"].size(), 24U);
  EXPECT_FALSE(driver.Ok({{"do", "requests"}}).contains("dropped"));
}

TEST(Kept, OfTooLongRegistrationsTheOldestGo) {
  Driver driver(Driver::Captured());
  for (const char digit : {'1', '2', '3'}) {
    driver.Ok({{"do", "init"}, {"invokeId", std::string(25'000'000, digit)}});
  }
  const Json answer = driver.Ok({{"do", "registrations"}});
  EXPECT_EQ(answer["dropped"], 1);
  ASSERT_EQ(answer["registrations"].size(), 2U);
  EXPECT_EQ(answer["registrations"][1]["invokeId"].get_ref<const std::string&>().front(), '3');
  EXPECT_FALSE(driver.Ok({{"do", "registrations"}}).contains("dropped"));
}

TEST(Kept, WhatRunsWhileABoxIsOpenCounts) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Answer(9000, "<DTMInfo state='Offline' />");
  driver.SetMember("SubPage", std::string(16'500'000, 'x'));
  const Json asks = Json::parse(R"j({"answer":"OK","during":[{"do":"members"},{"do":"members"}]})j");
  driver.Ok({{"do", "boxes"}, {"answers", Json(2, asks)}});
  for (int i = 0; i < 2; ++i) driver.Activate("Observe");
  const Json shown = driver.Ok({{"do", "shown"}});
  EXPECT_EQ(shown["dropped"], 1);
  ASSERT_EQ(shown["boxes"].size(), 1U);
  ASSERT_EQ(shown["boxes"][0]["during"].size(), 2U);
  EXPECT_EQ(shown["boxes"][0]["during"][1]["members"]["SubPage"].get_ref<const std::string&>().size(), 16'500'000U);
}

}  // namespace
}  // namespace htr60::automation
