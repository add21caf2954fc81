// The readers of the vision checks.

#include "ReaderTest.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"

using VisionTest = ReaderTest;

TEST_F(VisionTest, CloseRangeVisibility)
{
    WriteDefault("Vision/CloseRangeVisibility.xml", OneCategory("", "<area front_offset='1'/>"));
    VEXMELKCRVConfigDefinition callers;
    callers.type = "front_view";
    EXPECT_TRUE(Manager().GetCRVConfig()->GetStandardData("S", "x", callers));
    EXPECT_EQ(callers.front_offset, "1mm") << "the caller's type counts where the file has none";
}

TEST_F(VisionTest, FieldsEveryAttributeAndItsUnit)
{
    const auto expect = [this](const std::string& configuration, const std::string& record, const std::string& fields,
                            const std::string& element)
    {
        const Reader reader = {
            "Vision/" + configuration + ".xml", configuration, "/definition/fields/" + record, fields};
        ExpectElement(reader, element);
        ExpectUntouched(reader, Document(Standard("S", Category("x", ""))), 1);
    };
    for (const auto& [number, type] : Table<2>("0|A\n1|B\n2|C"))
    {
        const std::string field = "<field type='" + type + "' ";
        expect("FieldsOfView", number, "offset:mm", field + "@/>");
        for (const std::string index : {"0", "4"})
            expect("FieldsOfView", number + "/intervals/" + index,
                "top_angle:deg bottom_angle:deg driver_angle:deg passenger_angle:deg",
                field + "><interval index='" + index + "' @/></field>");
    }
    const std::string angles = "top_angle:deg bottom_angle:deg driver_angle:deg offset:mm=0mm";
    expect("ERFieldsOfView", "0", angles, "<field type='extended A' @/>");
    expect("ERFieldsOfView", "1", angles, "<field type='reduced B' @/>");

    // Each area has its own attributes, and leaves those of the others.
    const std::string all = "bottom_angle A1_driver_angle A2_area_width driver_angle cut_out_width upper_area_default "
                            "lower_area_default side_area_default extended_a_field_default";
    for (const auto& [type, own] : Table<2>(R"(
        upper area       | bottom_angle:deg A1_driver_angle:deg A2_area_width:mm upper_area_default
        side area        | driver_angle:deg side_area_default
        lower area       | bottom_angle:deg cut_out_width:mm lower_area_default
        extended a-field | extended_a_field_default)"))
    {
        std::string fields = own;
        for (const std::string& attribute : Split(all, " "))
            if ((" " + Replaced(own, ":", " ") + " ").find(" " + attribute + " ") == std::string::npos)
                fields += " " + attribute + ":unread=keep";
        expect("ERFieldsOfView", "1/" + Replaced(Replaced(type, " ", "_"), "-", "_"), fields,
            "<field type='reduced B'><deep><subtract type='" + type + "' @/></deep></field>");
    }
}

TEST_F(VisionTest, FieldsOfDefaultFirstThenThoseOfTheCategory)
{
    WriteDefault("Vision/FieldsOfView.xml", CaseFile("fieldsOfView.xml"));
    const auto ask = [this](const char* standard, const char* category, VEXMELKFieldsOfViewConfigDefinition& definition)
    {
        std::string text =
            Manager().GetFieldsOfViewConfig()->GetStandardData(standard, category, definition) ? "1" : "0";
        for (int type = 0; type < 3; ++type)
        {
            const VEXMELKFOVField& read = definition.fields[type];
            if (read.present)
                text += std::string(1, ' ') + "ABC"[type] + read.offset.ConvertToChar();
            for (int index = 0; index < 5; ++index)
                if (read.intervals[index].present)
                    text += " " + std::to_string(index) + ":" + read.intervals[index].top_angle.ConvertToChar();
        }
        return text;
    };
    for (const auto& [standard, category, answer] : Table<3>(R"(
        S | x | 1 A 0:1deg 1:8deg B7mm 4:3deg C
        S | default | 1 A5mm 0:1deg 1:2deg B7mm 4:3deg
        S | unknown | 1 A5mm 0:1deg 1:2deg B7mm 4:3deg
        own | x | 1 C2mm 3:1deg
        own | unknown | 0
        nested | x | 1 A3mm 0:2deg 1:4deg 2:5deg 3:7deg B2mm 0:2deg 1:4deg 2:5deg
        indices | x | 1 A 1:7deg 3:8deg
        obsolete | default | 0
        unknown | x | 0)"))
    {
        VEXMELKFieldsOfViewConfigDefinition fresh;
        EXPECT_EQ(ask(standard.c_str(), category.c_str(), fresh), answer) << standard << " " << category;
    }
    VEXMELKFieldsOfViewConfigDefinition used;
    ask("own", "x", used);
    EXPECT_EQ(ask("S", "default", used), "1 A5mm 0:1deg 1:2deg B7mm 4:3deg C2mm 3:1deg") << "nothing is cleared";
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}

TEST_F(VisionTest, ReducedFieldsOfDefaultFirstThenThoseOfTheCategory)
{
    WriteDefault("Vision/ERFieldsOfView.xml", CaseFile("reducedFieldsOfView.xml"));
    const auto ask = [this](
                         const char* standard, const char* category, VEXMELKERFieldsOfViewConfigDefinition& definition)
    {
        std::string text =
            Manager().GetERFieldsOfViewConfig()->GetStandardData(standard, category, definition) ? "1" : "0";
        for (const VEXMELKERFOVField& read : definition.fields)
        {
            text += read.present ? std::string(" ") + read.offset.ConvertToChar() : " -";
            for (const VEXMELKERFOVSubtractArea* area :
                {&read.upper_area, &read.side_area, &read.lower_area, &read.extended_a_field})
                text += !area->present ? " -"
                                       : std::string(" +") + area->A2_area_width.ConvertToChar() +
                                             area->cut_out_width.ConvertToChar();
        }
        return text;
    };
    for (const auto& [standard, category, answer] : Table<3>(R"(
        S | x | 1 5mm - - - - 0mm +6mm - + -
        S | default | 1 5mm - - - - 0mm +6mm - +7mm -
        S | unknown | 1 5mm - - - - 0mm +6mm - +7mm -
        own | x | 1 - - - - - 0mm - - - +
        own | unknown | 0 - - - - - - - - - -
        nested | x | 1 0mm - - - - 0mm +2mm - +4mm -
        obsolete | default | 0 - - - - - - - - - -
        unknown | x | 0 - - - - - - - - - -)"))
    {
        VEXMELKERFieldsOfViewConfigDefinition fresh;
        EXPECT_EQ(ask(standard.c_str(), category.c_str(), fresh), answer) << standard << " " << category;
    }
    VEXMELKERFieldsOfViewConfigDefinition used;
    ask("own", "x", used);
    EXPECT_EQ(ask("S", "default", used), "1 5mm - - - - 0mm +6mm - +7mm +") << "nothing is cleared";
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}
