#include "bench.h"
#include "text/failure.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(Faults, WhatTheyMakeOfADocument) {
  struct Row {
    json fault;
    int read;
    const char* tag;
    std::string value;
  };
  const std::string scale = F8(37.4) + F8(0);
  const std::vector<Row> rows{
      {{{"kind", "missingTag"}, {"tags", {"TRDOutScale"}}}, 7, "TRDOutScale", "(missing)"},
      {{{"kind", "missingTag"}, {"tags", {"TRDOutScale"}}}, 7, "TRDOutUnit", "046D"},
      {{{"kind", "noTags"}}, 7, "TRDOutUnit", "(missing)"},
      {{{"kind", "duplicateTag"}}, 7, "TRDOutScale", std::string(16, '0')},
      {{{"kind", "unknownCodes"}}, 7, "TRDOutUnit", "07D0"},
      {{{"kind", "unknownCodes"}}, 7, "MeasuredType", "FE"},
      {{{"kind", "unknownCodes"}}, 79, "TRDPVType", "FFFE"},
      {{{"kind", "floatNaN"}}, 7, "TRDOutScale", "7FC000007FC00000"},
      {{{"kind", "floatInfinity"}}, 35, "TRDPressure", "7F80000080"},
      {{{"kind", "floatDenormal"}}, 13, "AISimulate", "800000000100"},
      {{{"kind", "floatNaN"}}, 12, "AIUnit", "7FC000007FC00000046D00"},
      {{{"kind", "modificationBit"}}, 37, "AIAlarm", "8000000000000000"},
      {{{"kind", "hugeDocument"}}, 7, "TRDOutScale", scale},
      {{{"kind", "wrongDigits"}, {"tags", {"TRDOutScale"}}}, 7, "TRDOutScale", scale.substr(0, 15)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.fault.dump());
    Bench bench;
    const std::string healthy = bench.Read(row.read);
    const int id = bench.manager->BeginFault(row.fault);
    EXPECT_EQ(ValueOf(bench.Read(row.read), row.tag), row.value);
    bench.manager->ClearFault(id);
    EXPECT_EQ(bench.Read(row.read), healthy);
  }
}

TEST(Faults, BrokenDocuments) {
  Bench bench;
  const std::string healthy = bench.Read(7);
  const auto with = [&](const json& fault) {
    bench.manager->BeginFault(fault);
    const std::string document = bench.Read(7);
    bench.manager->ClearAllFaults();
    return document;
  };
  EXPECT_EQ(with({{"kind", "emptyDocument"}}), "");
  EXPECT_EQ(with({{"kind", "noTags"}}), "<Answer></Answer>");
  EXPECT_EQ(with({{"kind", "malformedXml"}}),
            healthy.substr(0, healthy.size() - std::string("999A\"/></Answer>").size()));
  EXPECT_EQ(Count(with({{"kind", "hugeDocument"}}), "<Parameter"), 10006U);
  EXPECT_EQ(Count(with({{"kind", "duplicateTag"}}), "tag=\"TRDOutUnit\""), 2U);
  EXPECT_NE(with({{"kind", "missingValue"}, {"tags", {"TRDOutUnit"}}}).find("<Parameter tag=\"TRDOutUnit\"/>"),
            std::string::npos);
  EXPECT_EQ(with({{"kind", "missingTag"}, {"codes", {8}}}), healthy);
  EXPECT_EQ(bench.Read(7), healthy);
}

TEST(Faults, DigitsGoWrongInTurn) {
  Bench bench;
  bench.manager->BeginFault({{"kind", "wrongDigits"}, {"tags", {"TRDTempUnit"}}});
  for (const char* value : {"03E", "0GE9", "03E903E9", "03E"}) {
    EXPECT_EQ(ValueOf(bench.Read(8), "TRDTempUnit"), value);
  }
}

TEST(Faults, CountAndTime) {
  Bench bench;
  bench.manager->BeginFault({{"kind", "noAnswer"}, {"codes", {7}}, {"count", 2}});
  EXPECT_NE(bench.Read(8), "(none)");
  EXPECT_EQ(bench.Read(7), "(none)");
  EXPECT_EQ(bench.Read(7), "(none)");
  EXPECT_NE(bench.Read(7), "(none)");
  bench.manager->BeginFault({{"kind", "noTags"}, {"atMs", 1000}, {"forMs", 500}});
  EXPECT_NE(bench.Read(7), "<Answer></Answer>");
  bench.Advance(1000);
  EXPECT_EQ(bench.Read(7), "<Answer></Answer>");
  bench.Advance(500);
  EXPECT_NE(bench.Read(7), "<Answer></Answer>");
  Bench born(json{{"faults", {{{"kind", "boardFailure"}}, {{"kind", "noTags"}, {"atMs", 500}}}}});
  EXPECT_EQ(ValueOf(born.Read(51), "SensorDiag"), "01");
  born.Advance(500);
  EXPECT_EQ(born.Read(51), "<Answer></Answer>");
}

TEST(Faults, SlowAnswersKeepTheQueueWaiting) {
  Bench bench;
  bench.manager->BeginFault({{"kind", "slowAnswer"}, {"codes", {7}}, {"ms", 3000}, {"count", 1}});
  bench.Ask(7);
  bench.Ask(8);
  bench.Advance(3049);
  EXPECT_TRUE(bench.receiver->answers.empty());
  bench.Advance(1);
  EXPECT_EQ(bench.receiver->answers.size(), 2U);
}

TEST(Faults, LateBurstComesAtOneInstantInOrder) {
  Bench bench;
  const int id = bench.manager->BeginFault({{"kind", "lateBurst"}, {"ms", 1000}});
  bench.Ask(7);
  bench.Advance(500);
  bench.Ask(8);
  bench.Advance(549);
  EXPECT_TRUE(bench.receiver->answers.empty());
  bench.Advance(1);
  ASSERT_EQ(bench.receiver->answers.size(), 2U);
  EXPECT_EQ(bench.receiver->answers[0].first, 700);
  bench.Ask(5);
  bench.Advance(100);
  EXPECT_EQ(bench.receiver->answers.size(), 2U);
  bench.manager->ClearFault(id);
  bench.Advance(1);
  EXPECT_EQ(bench.receiver->answers.size(), 3U);
}

TEST(Faults, WhatHasEndedIsForgotten) {
  Bench bench;
  const int counted = bench.manager->BeginFault({{"kind", "noTags"}, {"count", 1}, {"forMs", 1000000}});
  const int timed = bench.manager->BeginFault({{"kind", "boardFailure"}, {"forMs", 100}});
  const int delayed = bench.manager->BeginFault({{"kind", "noTags"}, {"atMs", 1000}, {"forMs", 100}});
  const int cleared = bench.manager->BeginFault({{"kind", "offline"}, {"atMs", 500}, {"forMs", 1000000}});
  bench.manager->ClearFault(cleared);
  for (const int id : {counted, timed, delayed}) EXPECT_TRUE(bench.manager->HasFault(id)) << id;
  EXPECT_EQ(bench.Read(7), "<Answer></Answer>");
  bench.Advance(100);
  EXPECT_FALSE(bench.manager->HasFault(counted));
  EXPECT_FALSE(bench.manager->HasFault(timed));
  EXPECT_TRUE(bench.manager->HasFault(delayed));
  bench.Advance(2000);
  EXPECT_FALSE(bench.manager->HasFault(delayed));
  EXPECT_FALSE(bench.manager->NextDue());  // nor does anything of them wait
  for (const int id : {counted, timed, delayed, cleared}) EXPECT_NO_THROW(bench.manager->ClearFault(id));
}

TEST(Faults, AnEndedBurstStillDeliversWhatItHolds) {
  Bench bench;
  bench.manager->BeginFault({{"kind", "lateBurst"}, {"ms", 9000}, {"count", 1}, {"forMs", 3000}});
  bench.Ask(7);
  bench.Advance(2999);
  EXPECT_TRUE(bench.receiver->answers.empty());
  bench.Advance(1);
  EXPECT_EQ(bench.receiver->answers.size(), 1U);
  bench.Advance(20000);
  EXPECT_EQ(bench.receiver->answers.size(), 1U);
}

TEST(Faults, StateLinkAndCalls) {
  Bench bench;
  std::string result;
  int id = bench.manager->BeginFault({{"kind", "shortState"}});
  EXPECT_EQ(bench.Read(90), "<DTMInfo state='Online'/>");
  bench.manager->ClearFault(id);
  id = bench.manager->BeginFault({{"kind", "offline"}});
  EXPECT_EQ(bench.Read(90), "<DTMInfo state='Offline' />");
  EXPECT_EQ(bench.Read(1), "(none)");
  bench.manager->ClearFault(id);
  EXPECT_EQ(bench.Read(90), "<DTMInfo state='Online' />");
  id = bench.manager->BeginFault({{"kind", "readFails"}, {"codes", {7}}});
  EXPECT_THROW(bench.manager->ReadRequest("7", "", result), RuntimeFailure);
  EXPECT_NE(bench.Read(8), "(none)");
  bench.manager->ClearFault(id);
  id = bench.manager->BeginFault({{"kind", "writeFails"}});
  EXPECT_THROW(bench.manager->WriteRequest("36", RequestOf({"0000"}), result), RuntimeFailure);
  bench.manager->ClearFault(id);
  bench.Advance(100);
  EXPECT_EQ(bench.Digits("writeLock"), "0999");
  bench.receiver->answers.clear();
  bench.manager->BeginFault({{"kind", "unaskedAnswer"}, {"codes", {8, 7}}});
  bench.Advance(500);
  ASSERT_EQ(bench.receiver->answers.size(), 1U);
  EXPECT_EQ(bench.receiver->answers[0].first, 800);
  EXPECT_FALSE(bench.manager->HasFault(99));
  EXPECT_THROW(bench.manager->ClearFault(99), SettingsError);
}

}  // namespace
}  // namespace htr60::sim
