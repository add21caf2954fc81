// The reader of the vehicle base data.

#include "ReaderTest.h"

namespace {

constexpr const char* file = "OVA/BaseData.xml";

// A seat or a wheel of which little is known.
std::string Seat(const std::string& name) { return "{" + name + " 0 '' '' '' '' '' '' '' '' '' '' '' '' '' ''}"; }

std::string WheelOfWidth(const std::string& width) { return "{'' '' '' '' '' " + width + " '' ''}"; }

} // namespace

using BaseDataTest = ReaderTest;

TEST_F(BaseDataTest, EveryAttributeAndItsUnit)
{
    const std::tuple<Reader, const char*> readers[] = {
        {{file, "BaseData", "/loadings/0", "front_delta:mm back_delta:mm", "GetLoadingDataForBaseDataCategory", "x", 0},
            "<loading name='n' @/>"},
        {{file, "BaseData", "/seats/0",
             "name IsFront:flag RefPointX:mm RefPointY:mm RefPointZ:mm BackAngle:deg HPointTravel:mm HeelRPX:mm "
             "HeelRPY:mm HeelRPZ:mm PedalRPX:mm PedalRPY:mm PedalRPZ:mm SteerRPX:mm SteerRPY:mm SteerRPZ:mm",
             "GetSeatDataForBaseDataCategory", "x", 0},
            "<seat @/>"},
        {{file, "BaseData", "/data",
             "CenterPointX:mm CenterPointY:mm CenterPointZ:mm StaticRadius:mm Diameter:mm Width:mm Sturz:deg Spur:deg",
             "GetWheelsDataForBaseDataCategory", "x, front"},
            "<wheels><rear Spur='1'/><front @/></wheels>"},
    };
    for (const auto& [reader, element] : readers)
    {
        ExpectAll(reader, Document(Category("x", element)));
        ExpectNone(reader, Document(Category("x", element)), reader.result);
    }
    const Reader overall = {file, "BaseData", "",
        "car_width:mm>carWidth forward_distance:mm>forwardDistance backward_distance:mm>backwardDistance",
        "GetOverallDataForCategory", "x"};
    ExpectAll(overall, Document("<category name='default' car_width='1'/><category name='x' @/>"));
    ExpectNone(overall, Document("<category name='x'/><category name='default' car_width='1'/>"));
    ExpectUntouched(overall, Document("<category name='default' car_width='1'/><category name='X'/>"), 0);
}

TEST_F(BaseDataTest, WhatTheCategoryLacksIsThatOfDefault)
{
    WriteDefault(file, Document(R"(
        <category name="default" car_width="1">
          <loading name="d1" front_delta="1" back_delta="2"/><loading name="d2"/>
          <seat name="ds"/>
          <wheels><front Width="1"/><axle><rear Width="2"/></axle></wheels>
          <wheels><spare Width="3"/></wheels>
        </category>
        <category name="x">
          <group><loading name="x1" front_delta="3"/></group>
          <loading front_delta="8" back_delta="8"/>
          <loading name="" front_delta="8" back_delta="8"/>
          <seat name="xs"/><group><seat BackAngle=""/></group>
          <wheels><front Width="4"/></wheels>
        </category>
        <category name="bare"/>
        <category name="wheelless"><wheels/><front Width="9"/></category>
        <group><category name="deep" car_width="9"><seat name="deep"/></category></group>)"));
    const std::string ofDefault = "{d1 '' '' 1mm 2mm} {d2 '' '' '' ''}";
    Expect("BaseData",
        {
            {"GetLoadingDataForBaseDataCategory", "x", "0 [{x1 '' '' 3mm ''} {'' '' '' '' ''} " + ofDefault + "]"},
            {"GetLoadingDataForBaseDataCategory", "default", "0 [" + ofDefault + " " + ofDefault + "]"},
            {"GetLoadingDataForBaseDataCategory", "bare", "0 [" + ofDefault + "]"},
            {"GetLoadingDataForBaseDataCategory", "X", "0 [" + ofDefault + "]"},
            {"GetSeatDataForBaseDataCategory", "x", "0 [" + Seat("xs") + " " + Seat("''") + "]"},
            {"GetSeatDataForBaseDataCategory", "default", "0 [" + Seat("ds") + "]"},
            {"GetSeatDataForBaseDataCategory", "bare", "0 [" + Seat("ds") + "]"},
            {"GetSeatDataForBaseDataCategory", "deep", "0 [" + Seat("ds") + "]"},
            {"GetOverallDataForCategory", "x", "1 '' '' ''"},
            {"GetOverallDataForCategory", "deep", "0 ~ ~ ~"},
            {"GetWheelsDataForBaseDataCategory", "x, front", "1 " + WheelOfWidth("4mm")},
            {"GetWheelsDataForBaseDataCategory", "x, rear", "1 " + WheelOfWidth("2mm")},
            {"GetWheelsDataForBaseDataCategory", "bare, front", "1 " + WheelOfWidth("1mm")},
            {"GetWheelsDataForBaseDataCategory", "wheelless, front", "1 " + WheelOfWidth("1mm")},
            {"GetWheelsDataForBaseDataCategory", "unknown, rear", "1 " + WheelOfWidth("2mm")},
            {"GetWheelsDataForBaseDataCategory", "x, spare", "0 {~ ~ ~ ~ ~ ~ ~ ~}"},
            {"GetWheelsDataForBaseDataCategory", "default, Front", "0 {~ ~ ~ ~ ~ ~ ~ ~}"},
            {"GetBaseDataCategories", "", "[default x bare wheelless]"},
        });

    WriteDefault(file, Document("<category name='x'/>"));
    Expect("BaseData", {
                           {"GetLoadingDataForBaseDataCategory", "x", "0 []"},
                           {"GetSeatDataForBaseDataCategory", "x", "0 []"},
                           {"GetSeatDataForBaseDataCategory", "default", "0 []"},
                           {"GetWheelsDataForBaseDataCategory", "x, front", "0 {~ ~ ~ ~ ~ ~ ~ ~}"},
                       });
}

TEST_F(BaseDataTest, CategoriesOfTheCustomerFileComeFirst)
{
    WriteDefault(file, Document(R"(
        <category name="default"><loading name="d"/><seat name="ds"/></category>
        <category name="x" car_width="1"><loading name="bx"/><seat name="bs"/><wheels><front Width="1"/></wheels></category>
        <category name="base" car_width="2"/><category name="base"/><category/>)"));
    WriteCustomer(file, Document(R"(
        <category name="x"><loading name="cx"/></category><category name="own"/><category name="x"/>)"));
    Expect("BaseData", {
                           {"GetBaseDataCategories", "", "[x own x default base]"},
                           {"GetLoadingDataForBaseDataCategory", "x", "0 [{cx '' '' '' ''} {d '' '' '' ''}]"},
                           {"GetSeatDataForBaseDataCategory", "x", "0 [" + Seat("ds") + "]"},
                           {"GetWheelsDataForBaseDataCategory", "x, front", "0 {~ ~ ~ ~ ~ ~ ~ ~}"},
                           {"GetOverallDataForCategory", "x", "1 '' '' ''"},
                           {"GetOverallDataForCategory", "base", "1 2mm '' ''"},
                       });
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}

TEST_F(BaseDataTest, ListsAreEmptiedWithoutDocumentsToo)
{
    Expect("BaseData", {
                           {"GetLoadingDataForBaseDataCategory", "x", "0 []"},
                           {"GetSeatDataForBaseDataCategory", "x", "0 []"},
                           {"GetBaseDataCategories", "", "[]"},
                           {"GetOverallDataForCategory", "x", "0 ~ ~ ~"},
                           {"GetWheelsDataForBaseDataCategory", "x, front", "0 {~ ~ ~ ~ ~ ~ ~ ~}"},
                       });
}
