// How the control calls its manager: by table and by name, one that fails, one that does anything inside a call.

#include <string>
#include <vector>

#include "control_bench.h"

namespace htr60::client {
namespace {

using Lines = std::vector<std::string>;

const std::string kNoOperands = R"(<ViewData><ControlData Attribute1="None" Attribute2="None")";

/// All calls by one way.
void CallsBy(Way way, const std::string& name) {
  TestManager manager(way);
  {
    const Control control;
    CHECK(control.Init(manager, L"an id \x00E4") == VARIANT_TRUE);
    CHECK((manager.TakeLog() == Lines{"register by " + name + ": PrjMainWQ512DTM.MainWQ512DTM, an id \xC3\xA4, 0"}));
    CHECK(manager.receiver);
    control.Inside().TimerDue(static_cast<int>(TimerId::TimerInit));
    CHECK((manager.TakeLog() ==
           Lines{"read by " + name + ": 90, " + kNoOperands, "read by " + name + ": 1, " + kNoOperands}));
    CHECK(control.Inside().CurrentPage == "Identification");
    CHECK(control.Inside().RequestResult == "taken \xC3\xA4");
    CHECK(control.Write());
    CHECK((manager.TakeLog() ==
           Lines{"write by " + name + R"(: 1, <ViewData><ControlData Attribute1="00" Attribute2="01")"}));
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    CHECK((manager.TakeLog() == Lines{"unregister by " + name + ": an id \xC3\xA4, -1"}));
    CHECK(!control.Read());
    CHECK(manager.TakeLog().empty());
  }
  CHECK(manager.References() == 1);
}

void ByTable() { CallsBy(Way::kTable, "table"); }
void ByName() { CallsBy(Way::kNames, "name"); }
void ByNameFirst() { CallsBy(Way::kBoth, "name"); }

void NullTexts() {
  TestManager manager;
  const Control control;
  VARIANT_BOOL attached = VARIANT_FALSE;
  CHECK(control.object->Init(nullptr, nullptr, manager.AsUnknown().Get(), &attached) == S_OK);
  CHECK(attached == VARIANT_TRUE);
  CHECK((manager.TakeLog() == Lines{"register by name: PrjMainWQ512DTM.MainWQ512DTM, , 0"}));
  // Who wants no result gets none.
  CHECK(control.object->Init(nullptr, nullptr, manager.AsUnknown().Get(), nullptr) == S_OK);
  CHECK(control.object->PrepareToRelease(nullptr) == S_OK);
}

/// A control that lives through one failing call, by both ways and with each kind of failure.
template <class Look>
void ForEachFailure(Failing failing, Look&& look) {
  for (const Way way : {Way::kTable, Way::kNames}) {
    for (const HRESULT failure : {E_FAIL, E_OUTOFMEMORY, DISP_E_EXCEPTION, RPC_E_DISCONNECTED, DISP_E_MEMBERNOTFOUND}) {
      TestManager manager(way);
      manager.failing = failing;
      manager.failure = failure;
      {
        const Control control;
        look(control, manager);
      }
      manager.receiver.Reset();
      CHECK(manager.References() == 1);
    }
  }
}

void CoreMissing() {
  ForEachFailure(Failing::kCore, [](const Control& control, TestManager& manager) {
    CHECK(control.Init(manager) == VARIANT_FALSE);
    CHECK(!control.Inside().DtmCore && !control.Inside().ParameterAccess);
    CHECK(!control.Read());
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    CHECK(manager.log.empty());
  });
}

void AccessMissing() {
  ForEachFailure(Failing::kAccess, [](const Control& control, TestManager& manager) {
    CHECK(control.Init(manager) == VARIANT_FALSE);
    CHECK(control.Inside().DtmCore && !control.Inside().ParameterAccess);
    CHECK(!control.Read());
    CHECK(manager.log.empty());
    // What was done before stands.
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    CHECK(manager.log.size() == 1);
  });
}

void RegistrationFails() {
  ForEachFailure(Failing::kRegister, [](const Control& control, TestManager& manager) {
    CHECK(control.Init(manager) == VARIANT_FALSE);
    CHECK(manager.log.size() == 1);
    CHECK(manager.deferred == (manager.failure == DISP_E_EXCEPTION && manager.log[0].starts_with("register by name")));
    CHECK(control.Read());
    CHECK(Answer(*manager.receiver.Get(), Identification("A1")) == S_OK);
    CHECK(control.Tag() == "A1");
  });
}

void ReadFails() {
  ForEachFailure(Failing::kRead, [](const Control& control, TestManager& manager) {
    CHECK(control.Init(manager) == VARIANT_TRUE);
    manager.TakeLog();
    control.Inside().TimerDue(static_cast<int>(TimerId::TimerInit));
    CHECK(manager.log.size() == 1);  // the second read is not tried
    CHECK(control.Inside().CurrentPage.empty());
    CHECK(control.Inside().RequestResult.empty());
    manager.failing = Failing::kNothing;
    CHECK(control.Read());
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
  });
}

void WriteFails() {
  ForEachFailure(Failing::kWrite, [](const Control& control, TestManager& manager) {
    CHECK(control.Init(manager) == VARIANT_TRUE);
    CHECK(!control.Write());
    CHECK(control.Inside().WritesSent() == 0);
    CHECK(control.Read());
  });
}

void UnregistrationFails() {
  ForEachFailure(Failing::kUnregister, [](const Control& control, TestManager& manager) {
    CHECK(control.Init(manager) == VARIANT_TRUE);
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    // The steps after it were not done, so the control is attached still.
    CHECK(control.Read());
    manager.failing = Failing::kNothing;
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    CHECK(!control.Read());
  });
}

void ReleaseTwiceOrNever() {
  TestManager manager;
  {
    const Control control;
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    control.Init(manager);
    manager.TakeLog();
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    CHECK(control.PrepareToRelease() == VARIANT_TRUE);
    CHECK(manager.TakeLog().size() == 1);
  }
  CHECK(manager.References() == 1);
  {
    const Control control;
    control.Init(manager);
    CHECK(manager.References() > 1);
  }
  CHECK(manager.References() == 1);
}

void InitTwice() {
  TestManager first;
  TestManager second;
  const Control control;
  CHECK(control.Init(first, L"1") == VARIANT_TRUE);
  CHECK(control.Init(second, L"2") == VARIANT_TRUE);
  CHECK(first.References() == 1);
  CHECK(first.log.size() == 1);
  second.TakeLog();
  CHECK(control.Read());
  CHECK(control.PrepareToRelease() == VARIANT_TRUE);
  CHECK(second.log.size() == 2 && second.log[1] == "unregister by name: 2, -1");
  // Both managers have the one receiver of the control.
  CHECK(first.receiver.Get() == second.receiver.Get());
}

void InitWithNothing() {
  TestManager manager;
  const Control control;
  CHECK(control.Init(manager) == VARIANT_TRUE);
  VARIANT_BOOL attached = VARIANT_TRUE;
  CHECK(control.object->Init(nullptr, nullptr, nullptr, &attached) == S_OK);
  CHECK(attached == VARIANT_FALSE);
  // The manager of before stands, for the failure came first.
  CHECK(control.Read());
  // Something that is no manager.
  const Control other;
  attached = VARIANT_TRUE;
  CHECK(control.object->Init(nullptr, nullptr, other.object.Get(), &attached) == S_OK);
  CHECK(attached == VARIANT_FALSE);
}

/// What is done inside a call of each kind.
template <class Act>
void InsideEachCall(Act&& act) {
  for (const char* call : {"register", "read", "write", "unregister"}) {
    const LONG before = com::LiveObjects();
    TestManager manager;
    {
      Control control;
      const std::string name = call;
      if (name != "register") control.Init(manager);
      manager.inside = [&] { act(control, manager); };
      // By the interface itself, which is what a frame holds; the control may have gone when it returns.
      com::IDtmActiveXControl* const frame = control.object.Get();
      UserCntrl* const inside = &control.Inside();
      VARIANT_BOOL result = VARIANT_FALSE;
      if (name == "register") CHECK(frame->Init(nullptr, nullptr, manager.AsUnknown().Get(), &result) == S_OK);
      if (name == "read") inside->TimerDue(static_cast<int>(TimerId::TimerInit));
      if (name == "write") inside->Click(id::cmdWriteParameter);
      if (name == "unregister") CHECK(frame->PrepareToRelease(&result) == S_OK);
      CHECK_FOR(name, name == "write" || !manager.inside);
      HandleAll();
    }
    manager.receiver.Reset();
    CHECK_FOR(call, manager.References() == 1);
    CHECK_FOR(call, com::LiveObjects() == before);
  }
}

void ReleasedInside() {
  InsideEachCall([](Control& control, TestManager&) { control.object.Reset(); });
}

void PreparedInside() {
  InsideEachCall([](Control& control, TestManager&) { control.PrepareToRelease(); });
}

void PreparedAndReleasedInside() {
  InsideEachCall([](Control& control, TestManager&) {
    control.PrepareToRelease();
    control.object.Reset();
    HandleAll();
  });
}

void AttachedAnewInside() {
  TestManager other;
  InsideEachCall([&](Control& control, TestManager&) {
    control.Init(other);
    other.receiver.Reset();
  });
  CHECK(other.References() == 1);
}

void ManagerLetGoInside() {
  InsideEachCall([](Control& control, TestManager& manager) {
    manager.receiver.Reset();
    VARIANT_BOOL attached = VARIANT_TRUE;
    control.object->Init(nullptr, nullptr, nullptr, &attached);
  });
}

void TimersRunByThemselves() {
  TestManager manager;
  const LONG before = com::LiveObjects();
  {
    Control control;
    CHECK(control.Init(manager) == VARIANT_TRUE);
    manager.receiver.Reset();
    manager.TakeLog();
    // The control goes in the first read of its timer.
    manager.inside = [&] { control.object.Reset(); };
    const ULONGLONG end = GetTickCount64() + 10000;
    while (manager.log.size() < 2 && GetTickCount64() < end) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
    }
    CHECK(!control.object);
  }
  CHECK((manager.log == Lines{"read by name: 90, " + kNoOperands, "read by name: 1, " + kNoOperands}));
  CHECK(manager.References() == 1);
  CHECK(com::LiveObjects() == before);
}

constexpr Case kCases[] = {
    {"a manager that knows no names", &ByTable},
    {"a manager that knows names alone", &ByName},
    {"a manager that knows both is called by name", &ByNameFirst},
    {"null texts, and results that nobody wants", &NullTexts},
    {"no core", &CoreMissing},
    {"no channel", &AccessMissing},
    {"the registration fails", &RegistrationFails},
    {"a read fails", &ReadFails},
    {"a write fails", &WriteFails},
    {"the unregistration fails", &UnregistrationFails},
    {"prepared to release twice or never", &ReleaseTwiceOrNever},
    {"attached twice", &InitTwice},
    {"attached to nothing", &InitWithNothing},
    {"released inside a call", &ReleasedInside},
    {"prepared to release inside a call", &PreparedInside},
    {"prepared and released inside a call", &PreparedAndReleasedInside},
    {"attached anew inside a call", &AttachedAnewInside},
    {"attached to nothing inside a call", &ManagerLetGoInside},
    {"released inside the call of a timer", &TimersRunByThemselves},
};

}  // namespace
}  // namespace htr60::client

int main() {
  const htr60::client::Apartment apartment;
  return htr60::client::RunCases(htr60::client::kCases);
}
