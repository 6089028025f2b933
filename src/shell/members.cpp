#include "shell/members.h"

namespace htr60 {
namespace {

constexpr Member Text(std::string_view name, std::string UserCntrl::*text) { return {.name = name, .text = text}; }
constexpr Member FlagOf(std::string_view name, Flag UserCntrl::*flag) { return {.name = name, .flag = flag}; }

constexpr Member kMembers[] = {
    {.name = "DtmCore", .held = [](const UserCntrl& c) { return c.DtmCore != nullptr; }},
    {.name = "DtmCoreForEvents", .held = [](const UserCntrl& c) { return c.DtmCoreForEvents != nullptr; }},
    Text("InvokeId", &UserCntrl::InvokeId),
    {.name = "ParameterAccess", .held = [](const UserCntrl& c) { return c.ParameterAccess != nullptr; }},
    Text("RequestCode", &UserCntrl::RequestCode),
    Text("RequestXml", &UserCntrl::RequestXml),
    Text("RequestResult", &UserCntrl::RequestResult),
    Text("BlockSelector", &UserCntrl::BlockSelector),
    Text("ConnectionState", &UserCntrl::ConnectionState),
    FlagOf("FirstVisitSensor", &UserCntrl::FirstVisitSensor),
    FlagOf("FirstVisitLcd", &UserCntrl::FirstVisitLcd),
    FlagOf("FirstVisitMonit2", &UserCntrl::FirstVisitMonit2),
    FlagOf("FirstVisitMonit3", &UserCntrl::FirstVisitMonit3),
    FlagOf("FirstVisitMonit4", &UserCntrl::FirstVisitMonit4),
    FlagOf("FirstVisitAi", &UserCntrl::FirstVisitAi),
    FlagOf("FirstVisitSpare", &UserCntrl::FirstVisitSpare),
    FlagOf("FirstVisitTrd", &UserCntrl::FirstVisitTrd),
    FlagOf("FirstVisitDensity", &UserCntrl::FirstVisitDensity),
    FlagOf("FirstVisitLevel", &UserCntrl::FirstVisitLevel),
    FlagOf("FirstVisitFactory", &UserCntrl::FirstVisitFactory),
    FlagOf("FirstVisitCalib", &UserCntrl::FirstVisitCalib),
    FlagOf("FirstVisitDensityCalib", &UserCntrl::FirstVisitDensityCalib),
    FlagOf("FirstVisitCalRef", &UserCntrl::FirstVisitCalRef),
    FlagOf("CheckOutScaleAfterWrite", &UserCntrl::CheckOutScaleAfterWrite),
    Text("CurrentPage", &UserCntrl::CurrentPage),
    Text("SubPage", &UserCntrl::SubPage),
    FlagOf("OfflineAsked", &UserCntrl::OfflineAsked),
    FlagOf("SpareFlag", &UserCntrl::SpareFlag),
    Text("CalibNodeText", &UserCntrl::CalibNodeText),
    Text("PreviousPVType", &UserCntrl::PreviousPVType),
    Text("AiPvType", &UserCntrl::AiPvType),
    FlagOf("FwFlag104", &UserCntrl::FwFlag104),
    FlagOf("FwFlag105", &UserCntrl::FwFlag105),
    FlagOf("FwFlag106", &UserCntrl::FwFlag106),
    FlagOf("FwFlag107", &UserCntrl::FwFlag107),
    FlagOf("FwFlag108", &UserCntrl::FwFlag108),
    FlagOf("FwFlag109", &UserCntrl::FwFlag109),
    FlagOf("FwFlagUserIdent", &UserCntrl::FwFlagUserIdent),
};

}  // namespace

std::span<const Member> Members() { return kMembers; }

}  // namespace htr60
