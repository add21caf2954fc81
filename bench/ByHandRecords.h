// The records of all checks, read by hand from the attributes of an element, and of another one for those that it
// lacks.
#ifndef BENCH_ByHandRecords_H
#define BENCH_ByHandRecords_H

#include "ByHand.h"
#include "VEXMELKAPillarConfig.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKChildProtectionConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKDirectView3DConfig.h"
#include "VEXMELKDirectViewConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"
#include "VEXMELKFreeSpaceConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKManikinTemplateConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKNumberPlatesConfig.h"
#include "VEXMELKOpticalDistortionConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"
#include "VEXMELKPyramidConfig.h"
#include "VEXMELKSRPLocationCurvesConfig.h"
#include "VEXMELKSeatingBeltsConfig.h"
#include "VEXMELKUFCompleteConfig.h"
#include "VEXMELKUFCurbConfig.h"
#include "VEXMELKVisionConeConfig.h"
#include "VEXMELKVisionPointsConfig.h"
#include "VEXMELKWheelCoveringConfig.h"
#include "VEXMELKWipersConfig.h"

namespace ByHand {

inline void ReadUFComplete(Node own, Node other, VEXMELKUFCompleteConfigDefinition& record)
{
    ReadText(At(own, other, "Curb"), record.Curb);
    ReadText(At(own, other, "DynCurb"), record.DynCurb);
    ReadText(At(own, other, "InnerAngle"), record.InnerAngle);
    ReadText(At(own, other, "OilTub"), record.OilTub);
    ReadText(At(own, other, "SlopeAngle"), record.SlopeAngle);
    ReadText(At(own, other, "SpaceToRoad"), record.SpaceToRoad);
    ReadText(At(own, other, "WheelFixing"), record.WheelFixing);
}

inline void ReadUFCurb(Node own, Node other, VEXMELKUFCurbConfigDefinition& record)
{
    ReadText(At(own, other, "front_offset"), "mm", record.FrontOffset);
    ReadText(At(own, other, "front_angle"), "deg", record.FrontAngle);
    ReadText(At(own, other, "back_angle"), "deg", record.BackAngle);
    ReadText(At(own, other, "back_offset"), "mm", record.BackOffset);
}

inline void ReadAPillar(Node own, Node other, VEXMELKAPillarConfigDefinition& record)
{
    ReadText(At(own, other, "top_angle"), "deg", record.top_angle);
    ReadText(At(own, other, "bottom_angle"), "deg", record.bottom_angle);
    ReadText(At(own, other, "driver_angle"), "deg", record.driver_angle);
    ReadText(At(own, other, "passenger_angle"), "deg", record.passenger_angle);
    ReadText(At(own, other, "eye_triangle_side"), "mm", record.eye_triangle_side);
    ReadText(At(own, other, "eye_triangle_base"), "mm", record.eye_triangle_base);
    ReadText(At(own, other, "touch_line_angle"), "deg", record.touch_line_angle);
}

inline void ReadCRVCylinder(Node own, Node other, VEXMELKCRVConfigDefinition& record)
{
    KeepText(At(own, other, "radius"), record.radius);
    KeepText(At(own, other, "height"), record.height);
    KeepText(At(own, other, "visibleRayCount"), record.visibleRayCount);
}

inline void ReadCRVFrontView(Node own, Node other, VEXMELKCRVConfigDefinition& record)
{
    ReadText(At(own, other, "front_offset"), "mm", record.front_offset, "2000mm");
    ReadText(At(own, other, "driver_side_extension"), "mm", record.driver_side_extension, "700mm");
    ReadText(At(own, other, "passenger_side_extension"), "mm", record.passenger_side_extension, "900mm");
}

inline void ReadCRVZone(Node own, Node other, VEXMELKCRVConfigDefinition& record)
{
    KeepText(At(own, other, "param1"), record.param1);
    KeepText(At(own, other, "param2"), record.param2);
}

inline void ReadDirectView3D(Node own, Node other, VEXMELKDirectView3DCFG& record)
{
    ReadText(At(own, other, "ComputationType"), record.ComputationTypeText);
    ReadRadians(At(own, other, "ViewRange"), record.ViewRange);
    ReadText(At(own, other, "Direction"), record.DirectionText);
}

inline void ReadDirectView3DTarget(Node own, Node other, VEXMELKDirectView3DCFG& record)
{
    ReadMillimetres(At(own, other, "Distance"), record.TargetDistance);
    ReadText(At(own, other, "type"), record.TargetTypeText);
}

inline void ReadDirectView(Node own, Node other, VEXMELKDirectViewCFG& record)
{
    ReadText(At(own, other, "MaxTopAngle"), "mm", record.MaxTopAngle);
    ReadText(At(own, other, "MaxBottomAngle"), "mm", record.MaxBottomAngle);
    ReadText(At(own, other, "MPAzimuth"), "mm", record.MPAzimuth);
    ReadText(At(own, other, "MPElevation"), "mm", record.MPElevation);
}

inline void ReadERFieldsOfViewField(Node own, Node other, VEXMELKERFOVField& record)
{
    ReadText(At(own, other, "top_angle"), "deg", record.top_angle);
    ReadText(At(own, other, "bottom_angle"), "deg", record.bottom_angle);
    ReadText(At(own, other, "driver_angle"), "deg", record.driver_angle);
    ReadText(At(own, other, "offset"), "mm", record.offset, "0mm");
}

inline void ReadERFieldsOfViewUpper(Node own, Node other, VEXMELKERFOVSubtractArea& record)
{
    ReadText(At(own, other, "upper_area_default"), record.upper_area_default);
    ReadText(At(own, other, "bottom_angle"), "deg", record.bottom_angle);
    ReadText(At(own, other, "A1_driver_angle"), "deg", record.A1_driver_angle);
    ReadText(At(own, other, "A2_area_width"), "mm", record.A2_area_width);
}

inline void ReadERFieldsOfViewSide(Node own, Node other, VEXMELKERFOVSubtractArea& record)
{
    ReadText(At(own, other, "side_area_default"), record.side_area_default);
    ReadText(At(own, other, "driver_angle"), "deg", record.driver_angle);
}

inline void ReadERFieldsOfViewLower(Node own, Node other, VEXMELKERFOVSubtractArea& record)
{
    ReadText(At(own, other, "lower_area_default"), record.lower_area_default);
    ReadText(At(own, other, "bottom_angle"), "deg", record.bottom_angle);
    ReadText(At(own, other, "cut_out_width"), "mm", record.cut_out_width);
}

inline void ReadFieldsOfView(Node own, Node other, VEXMELKFieldsOfViewConfigDefinition& record)
{
    ReadText(At(own, other, "threshold1"), "mm", record.threshold1);
    ReadText(At(own, other, "threshold2"), "mm", record.threshold2);
    ReadText(At(own, other, "threshold3"), "mm", record.threshold3);
    ReadText(At(own, other, "threshold4"), "mm", record.threshold4);
}

inline void ReadFieldsOfViewField(Node own, Node other, VEXMELKFOVField& record)
{
    ReadText(At(own, other, "offset"), "mm", record.offset);
}

inline void ReadFieldsOfViewInterval(Node own, Node other, VEXMELKFOVInterval& record)
{
    ReadText(At(own, other, "top_angle"), "deg", record.top_angle);
    ReadText(At(own, other, "bottom_angle"), "deg", record.bottom_angle);
    ReadText(At(own, other, "driver_angle"), "deg", record.driver_angle);
    ReadText(At(own, other, "passenger_angle"), "deg", record.passenger_angle);
}

inline constexpr Word manikinTemplateRoleWords[] = {{"unused", MTUsageUnused}, {"base_data", MTUsageBaseData},
    {"input", MTUsageInput}, {"selection", MTUsageInput}, {"output", MTUsageOutput}};
inline void ReadManikinTemplate(Node own, Node other, VEXMELKManikinTemplateDefinition& record)
{
    KeepWord(At(own, other, "torso_length"), manikinTemplateRoleWords, MTUsageValue, record.torso_length_usage);
    KeepText(At(own, other, "torso_length"), "mm", record.torso_length);
    KeepWord(At(own, other, "torso_angle"), manikinTemplateRoleWords, MTUsageValue, record.torso_angle_usage);
    KeepText(At(own, other, "torso_angle"), "deg", record.torso_angle);
    KeepWord(At(own, other, "seat_point"), manikinTemplateRoleWords, MTUsageValue, record.seat_point_usage);
    KeepWord(At(own, other, "hip_angle"), manikinTemplateRoleWords, MTUsageValue, record.hip_angle_usage);
    KeepText(At(own, other, "hip_angle"), "deg", record.hip_angle);
    KeepWord(At(own, other, "rump_length"), manikinTemplateRoleWords, MTUsageValue, record.rump_length_usage);
    KeepText(At(own, other, "rump_length"), "mm", record.rump_length);
    KeepWord(At(own, other, "knee_angle"), manikinTemplateRoleWords, MTUsageValue, record.knee_angle_usage);
    KeepText(At(own, other, "knee_angle"), "deg", record.knee_angle);
    KeepWord(At(own, other, "leg_room"), manikinTemplateRoleWords, MTUsageValue, record.leg_room_usage);
    KeepText(At(own, other, "leg_room"), "mm", record.leg_room);
    KeepWord(At(own, other, "leg_length"), manikinTemplateRoleWords, MTUsageValue, record.leg_length_usage);
    KeepText(At(own, other, "leg_length"), "mm", record.leg_length);
    KeepWord(At(own, other, "foot_angle"), manikinTemplateRoleWords, MTUsageValue, record.foot_angle_usage);
    KeepText(At(own, other, "foot_angle"), "deg", record.foot_angle);
    KeepText(At(own, other, "max_foot_angle"), "deg", record.max_foot_angle);
    KeepText(At(own, other, "min_foot_angle"), "deg", record.min_foot_angle);
    KeepWord(At(own, other, "foot_length"), manikinTemplateRoleWords, MTUsageValue, record.foot_length_usage);
    KeepText(At(own, other, "foot_length"), "mm", record.foot_length);
    KeepWord(At(own, other, "foot_flesh_angle"), manikinTemplateRoleWords, MTUsageValue, record.foot_flesh_angle_usage);
    KeepText(At(own, other, "foot_flesh_angle"), "deg", record.foot_flesh_angle);
    KeepWord(At(own, other, "foot_hoffset"), manikinTemplateRoleWords, MTUsageValue, record.foot_hoffset_usage);
    KeepText(At(own, other, "foot_hoffset"), "mm", record.foot_hoffset);
    KeepWord(At(own, other, "foot_voffset"), manikinTemplateRoleWords, MTUsageValue, record.foot_voffset_usage);
    KeepText(At(own, other, "foot_voffset"), "mm", record.foot_voffset);
    KeepWord(At(own, other, "bof_point"), manikinTemplateRoleWords, MTUsageValue, record.bof_point_usage);
    KeepWord(At(own, other, "ankle_point"), manikinTemplateRoleWords, MTUsageValue, record.ankle_point_usage);
    KeepWord(At(own, other, "lift"), manikinTemplateRoleWords, MTUsageValue, record.lift_usage);
    KeepText(At(own, other, "lift"), "mm", record.lift);
    KeepWord(At(own, other, "heel_point"), manikinTemplateRoleWords, MTUsageValue, record.heel_point_usage);
    KeepWord(At(own, other, "pedal"), manikinTemplateRoleWords, MTUsageValue, record.pedal_usage);
    KeepWord(At(own, other, "floor"), manikinTemplateRoleWords, MTUsageValue, record.floor_usage);
    KeepWord(At(own, other, "interior"), manikinTemplateRoleWords, MTUsageValue, record.interior_usage);
    KeepText(At(own, other, "interior_interval"), "mm", record.interior_interval);
    KeepFlag(At(own, other, "foot_on_floor"), record.foot_on_floor);
}

inline void ReadMirrorStandard(Node own, Node other, VEXMELKMirrorDefinition& record)
{
    ReadText(At(own, other, "infinite_size"), "mm", record.infinite_size);
    ReadText(At(own, other, "USBackLineDistance"), "mm", record.USBackLineDistance);
    ReadText(At(own, other, "USAngle"), "deg", record.USAngle);
}

inline void ReadMirrorField(Node own, Node other, VEXMELKMirrorDefinition& record)
{
    ReadText(At(own, other, "Plane"), record.Plane);
    ReadText(At(own, other, "PositionType"), record.PositionType);
    ReadText(At(own, other, "X"), "mm", record.X);
    ReadText(At(own, other, "XREL"), record.XREL);
    ReadText(At(own, other, "ReqTotalCoverage"), record.ReqTotalCoverage);
}

inline void ReadMirrorOnRoad(Node own, Node other, VEXMELKMirrorPointDefinition& record)
{
    ReadText(At(own, other, "X"), "mm", record.Coordinate1);
    ReadText(At(own, other, "XREL"), record.Coordinate1REL);
}

inline void ReadMirrorOther(Node own, Node other, VEXMELKMirrorPointDefinition& record)
{
    ReadText(At(own, other, "Z"), "mm", record.Coordinate1);
    ReadText(At(own, other, "ZREL"), record.Coordinate1REL);
}

inline void ReadMirrorPoint(Node own, Node other, VEXMELKMirrorPointDefinition& record)
{
    ReadText(At(own, other, "Y"), "mm", record.Y);
    ReadText(At(own, other, "YREL"), record.YREL);
    ReadText(At(own, other, "R"), "mm", record.R);
}

inline void ReadOpticalDistortion(Node own, Node other, VEXMELKOpticalDistortionConfigDef& record)
{
    ReadText(At(own, other, "dcRadius"), "mm", record.dcRadius);
    ReadText(At(own, other, "dcDensity"), record.dcDensity);
}

inline void ReadPyramid(Node own, Node other, VEXMELKPyramidConfigDefinition& record)
{
    ReadText(At(own, other, "front_angle"), "deg", record.front_angle);
    ReadText(At(own, other, "driver_angle"), "deg", record.driver_angle);
    ReadText(At(own, other, "passenger_angle"), "deg", record.passenger_angle);
    ReadText(At(own, other, "middle_plane_angle"), "deg", record.middle_plane_angle);
}

inline void ReadSRPLocationCurvesCurve(Node own, Node other, VEXMELKSRPLocationCurveDefinition& record)
{
    ReadText(At(own, other, "name"), record.name);
    ReadMillimetres(At(own, other, "a"), record.a);
    ReadMillimetres(At(own, other, "b"), record.b);
    ReadMillimetres(At(own, other, "c"), record.c);
    ReadMillimetres(At(own, other, "z_max"), record.z_max);
    ReadMillimetres(At(own, other, "z_min"), record.z_min);
}

inline void ReadSeatingBelts(Node own, Node other, VEXMELKSBTandardCfgDefinition& record)
{
    ReadFlag(At(own, other, "EUApproach"), record.EUApproach);
    ReadFlag(At(own, other, "BackAngleEditAble"), record.BackAngleEditAble, true);
    ReadFlag(At(own, other, "Trans1IsSpecial"), record.Trans1IsSpecial);
    ReadFlag(At(own, other, "Trans2IsSpecial"), record.Trans2IsSpecial);
    ReadFlag(At(own, other, "Trans3IsSpecial"), record.Trans3IsSpecial);
    ReadText(At(own, other, "USLowShiftThreshold"), "mm", record.USLowShiftThreshold);
    ReadText(At(own, other, "USLowXShift"), "mm", record.USLowXShift);
    ReadText(At(own, other, "USLowZShift"), "mm", record.USLowZShift);
    ReadText(At(own, other, "PlaneDistP"), "mm", record.PlaneDistP);
    ReadText(At(own, other, "PlaneDistQ"), "mm", record.PlaneDistQ);
    ReadText(At(own, other, "PlaneDistR"), "mm", record.PlaneDistR);
}

inline void ReadVisionCone(Node own, Node other, VEXMELKVisionConeConfigDefinition& record)
{
    ReadText(At(own, other, "cone_angle"), "deg", record.cone_angle);
    ReadText(At(own, other, "horizontal_axis_angle"), "deg", record.horizontal_axis_angle);
    ReadText(At(own, other, "vertical_axis_angle"), "deg", record.vertical_axis_angle);
    ReadText(At(own, other, "cone_length"), "mm", record.cone_length);
}

inline void ReadVisionPoints(Node own, Node other, VEXMELKVisionPointsConfigDefinition& record)
{
    ReadText(At(own, other, "top_angle"), "deg", record.top_angle);
    ReadText(At(own, other, "bottom_angle"), "deg", record.bottom_angle);
    ReadText(At(own, other, "horizontal_angle"), "deg", record.horizontal_angle);
}

inline void ReadWipers(Node own, Node other, VEXMELKWipersDefinition& record)
{
    ReadNumber(At(own, other, "a_field"), record.a_field, -1.0);
    ReadNumber(At(own, other, "b_field"), record.b_field, -1.0);
    ReadNumber(At(own, other, "c_field"), record.c_field, -1.0);
}

inline void ReadBaseDataSeat(Node own, Node other, VEXMELKSeatDefinition& record)
{
    ReadText(At(own, other, "name"), record.name);
    ReadFlag(At(own, other, "IsFront"), record.IsFront);
    ReadText(At(own, other, "BackAngle"), "deg", record.BackAngle);
    ReadText(At(own, other, "HPointTravel"), "mm", record.HPointTravel);
    ReadText(At(own, other, "RefPointX"), "mm", record.RefPointX);
    ReadText(At(own, other, "RefPointY"), "mm", record.RefPointY);
    ReadText(At(own, other, "RefPointZ"), "mm", record.RefPointZ);
    ReadText(At(own, other, "HeelRPX"), "mm", record.HeelRPX);
    ReadText(At(own, other, "HeelRPY"), "mm", record.HeelRPY);
    ReadText(At(own, other, "HeelRPZ"), "mm", record.HeelRPZ);
    ReadText(At(own, other, "PedalRPX"), "mm", record.PedalRPX);
    ReadText(At(own, other, "PedalRPY"), "mm", record.PedalRPY);
    ReadText(At(own, other, "PedalRPZ"), "mm", record.PedalRPZ);
    ReadText(At(own, other, "SteerRPX"), "mm", record.SteerRPX);
    ReadText(At(own, other, "SteerRPY"), "mm", record.SteerRPY);
    ReadText(At(own, other, "SteerRPZ"), "mm", record.SteerRPZ);
}

inline void ReadEyePointsPoint(Node own, Node other, VEXMELKEyePointDefinition& record)
{
    ReadText(At(own, other, "name"), record.name);
    ReadText(At(own, other, "dx"), "mm", record.dx);
    ReadText(At(own, other, "dy"), "mm", record.dy);
    ReadText(At(own, other, "dz"), "mm", record.dz);
}

inline void ReadBumpersProfile(Node own, Node other, VEXMELKBumpersDefinition& record)
{
    ReadText(At(own, other, "NoseRadius"), "mm", record.NoseRadius);
    ReadText(At(own, other, "SideRadius"), "mm", record.SideRadius);
    ReadText(At(own, other, "NoseAngle"), "deg", record.NoseAngle);
    ReadText(At(own, other, "SideAngle"), "deg", record.SideAngle);
    ReadText(At(own, other, "NoseHeight"), "mm", record.NoseHeight);
    ReadText(At(own, other, "NoseLength"), "mm", record.NoseLength);
    ReadText(At(own, other, "RenderDepth"), "mm", record.RenderDepth);
    ReadText(At(own, other, "RenderHeight"), "mm", record.RenderHeight);
    ReadText(At(own, other, "RenderDistance"), "mm", record.RenderDistance);
    ReadText(At(own, other, "CenterLineLength"), "mm", record.CenterLineLength);
}

inline void ReadBumpersRepeated(Node own, Node other, VEXMELKBumpersDefinition& record)
{
    KeepText(At(own, other, "Width"), "mm", record.Width);
    KeepText(At(own, other, "Height"), "mm", record.Height);
    KeepText(At(own, other, "Extension"), "mm", record.Extension);
    KeepText(At(own, other, "Depth"), "mm", record.Depth);
    KeepText(At(own, other, "FilletRadius"), "mm", record.FilletRadius);
}

inline constexpr Word bumpersPositions[] = {{"front", 1}, {"rear", 0}};
inline void ReadBumpersBumper(Node own, Node other, VEXMELKBumpersDefinition& record)
{
    ReadText(At(own, other, "loading"), record.loading);
    ReadText(At(own, other, "Limit"), "mm", record.Limit);
    ReadWord(At(own, other, "Position"), bumpersPositions, 0, record.Position);
    ReadText(At(own, other, "Offset"), "mm", record.Offset);
    ReadText(At(own, other, "Angle"), "deg", record.Angle, "30.0deg");
}

inline void ReadChildProtection(Node own, Node other, VEXMELKChildProtectionDefinition& record)
{
    ReadText(At(own, other, "CPShDist"), "mm", record.CPShDist);
    ReadText(At(own, other, "CPShRadius"), "mm", record.CPShRadius);
    ReadText(At(own, other, "CPBackDist"), "mm", record.CPBackDist);
    ReadText(At(own, other, "CPTopAngle"), "deg", record.CPTopAngle);
    ReadText(At(own, other, "CPShCShift"), "mm", record.CPShCShift);
    ReadText(At(own, other, "CPVolVertAngle"), "deg", record.CPVolVertAngle);
    ReadText(At(own, other, "CPVolHorizAngle"), "deg", record.CPVolHorizAngle);
    ReadText(At(own, other, "CPVolHorizOffset"), "mm", record.CPVolHorizOffset);
    ReadFlag(At(own, other, "CPUseCShift"), record.CPUseCShift);
    ReadText(At(own, other, "CPAustralianNormOffset"), "mm", record.CPAustralianNormOffset);
    ReadFlag(At(own, other, "CPAustralianNorm"), record.CPAustralianNorm);
}

inline constexpr Word crashBarriersShapeTypes[] = {{"RCAR 2004 Front", VEXIMELKCrashBarrier::RCAR2004Front},
    {"RCAR 2004 Rear", VEXIMELKCrashBarrier::RCAR2004Rear}, {"RCAR 2006", VEXIMELKCrashBarrier::RCAR2006}};
inline constexpr Word crashBarriersPositionTypes[] = {{"front", VEXIMELKCrashBarrier::Front},
    {"rear", VEXIMELKCrashBarrier::Rear}, {"left", VEXIMELKCrashBarrier::Left}, {"right", VEXIMELKCrashBarrier::Right}};
inline constexpr Word crashBarriersOverlappingSides[] = {{"left", VEXIMELKCrashBarrier::LeftSide},
    {"front", VEXIMELKCrashBarrier::LeftSide}, {"right", VEXIMELKCrashBarrier::RightSide},
    {"rear", VEXIMELKCrashBarrier::RightSide}};
inline void ReadCrashBarriersBarrier(Node own, Node other, VEXMELKBarrierDefinition& record)
{
    ReadFlag(At(own, other, "AllowMovingAroundX"), record.AllowMovingAroundX);
    ReadText(At(own, other, "DeltaZLeft"), record.DeltaZLeft, "0mm");
    ReadText(At(own, other, "DeltaZRight"), record.DeltaZRight, "0mm");
    ReadWord(At(own, other, "shape"), crashBarriersShapeTypes, VEXIMELKCrashBarrier::RCAR2004Front, record.shape);
    ReadText(At(own, other, "loading"), record.loading);
    ReadWord(At(own, other, "Position"), crashBarriersPositionTypes, VEXIMELKCrashBarrier::Front, record.Position);
    ReadText(At(own, other, "Rotation"), "deg", record.Rotation, "0deg");
    ReadWord(At(own, other, "OverlappingSide"), crashBarriersOverlappingSides, VEXIMELKCrashBarrier::LeftSide,
        record.OverlappingSide);
    ReadFlag(At(own, other, "PositionToGeometry"), record.PositionToGeometry);
    ReadFlag(At(own, other, "EnableAdditionalShift"), record.EnableAdditionalShift);
    ReadText(At(own, other, "AdditionalShift"), "mm", record.AdditionalShift, "0mm");
    ReadFlag(At(own, other, "ReferencePart"), record.ReferencePart);
    ReadText(At(own, other, "HeightAboveRoad"), "mm", record.HeightAboveRoad);
}

inline void ReadFreeSpace(Node own, Node other, VEXMELKFreeSpaceDefinition& record)
{
    ReadText(At(own, other, "FSFrontAngle"), "deg", record.FSFrontAngle);
    ReadText(At(own, other, "FSMidAngle"), "deg", record.FSMidAngle);
    ReadText(At(own, other, "FSBackAngle"), "deg", record.FSBackAngle);
    ReadText(At(own, other, "FSSideAngle"), "deg", record.FSSideAngle);
    ReadText(At(own, other, "FSNoseLength"), "mm", record.FSNoseLength);
    ReadText(At(own, other, "FSHoleDistance"), "mm", record.FSHoleDistance);
    ReadText(At(own, other, "FSHoleHight"), "mm", record.FSHoleHight);
    ReadText(At(own, other, "FSHoleLength"), "mm", record.FSHoleLength);
    ReadText(At(own, other, "FSBottomHight"), "mm", record.FSBottomHight);
    ReadText(At(own, other, "FSNoseHight"), "mm", record.FSNoseHight);
    ReadText(At(own, other, "FSBodyHight"), "mm", record.FSBodyHight);
    ReadText(At(own, other, "FSMidLength"), "mm", record.FSMidLength);
    ReadText(At(own, other, "FSNoseWidth"), "mm", record.FSNoseWidth);
    ReadText(At(own, other, "FSBodyWidth"), "mm", record.FSBodyWidth);
}

inline void ReadHeadImpactHeadGravityCenter(Node own, Node other, VEXMELKHeadGravityCenterDefinition& record)
{
    ReadText(At(own, other, "CG_FX_Offset"), "mm", record.CG_FX_Offset);
    ReadText(At(own, other, "CG_FZ_Offset"), "mm", record.CG_FZ_Offset);
    ReadText(At(own, other, "CG_RX_Offset"), "mm", record.CG_RX_Offset);
    ReadText(At(own, other, "CG_RZ_Offset"), "mm", record.CG_RZ_Offset);
}

inline void ReadHeadImpactUpperRoof(Node own, Node other, VEXMELKUpperRoofDefinition& record)
{
    ReadText(At(own, other, "RoofSectionOffset"), "mm", record.RoofSectionOffset);
    ReadText(At(own, other, "ActiveRoofRatio"), record.ActiveRoofRatio);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline constexpr Word headImpactMeasurementMethods[] = {{"0", 0}, {"1", 1}, {"2", 2}};
inline void ReadHeadImpactAPillar(Node own, Node other, VEXMELKAPillarDefinition& record)
{
    ReadText(At(own, other, "AP2_Offset"), "mm", record.AP2_Offset);
    ReadText(At(own, other, "PT1_Offset"), "mm", record.PT1_Offset);
    ReadText(At(own, other, "PT2_Offset"), "mm", record.PT2_Offset);
    ReadText(At(own, other, "MaxHLeftAngle"), "deg", record.MaxHLeftAngle);
    ReadText(At(own, other, "MaxHRightAngle"), "deg", record.MaxHRightAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
    ReadText(At(own, other, "MinHLeftAngle"), "deg", record.MinHLeftAngle);
    ReadText(At(own, other, "MinHRightAngle"), "deg", record.MinHRightAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadWord(At(own, other, "MeasurementMethod"), headImpactMeasurementMethods, 2, record.MeasurementMethod);
    ReadFraction(At(own, other, "MaxMeasurementDeviation"), record.MaxMeasurementDeviation, 0.05);
}

inline void ReadHeadImpactBPillar(Node own, Node other, VEXMELKBPillarDefinition& record)
{
    ReadText(At(own, other, "MinHLeftAngle"), "deg", record.MinHLeftAngle);
    ReadText(At(own, other, "MaxHLeftAngle"), "deg", record.MaxHLeftAngle);
    ReadText(At(own, other, "MinHRightAngle"), "deg", record.MinHRightAngle);
    ReadText(At(own, other, "MaxHRightAngle"), "deg", record.MaxHRightAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline void ReadHeadImpactRearmostPillar(Node own, Node other, VEXMELKRearmostPillarDefinition& record)
{
    ReadText(At(own, other, "RP2_Offset"), "mm", record.RP2_Offset);
    ReadText(At(own, other, "RP1_Ratio"), record.RP1_Ratio);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
    ReadText(At(own, other, "MinHLeftAngle"), "deg", record.MinHLeftAngle);
    ReadText(At(own, other, "MaxHLeftAngle"), "deg", record.MaxHLeftAngle);
    ReadText(At(own, other, "MinHRightAngle"), "deg", record.MinHRightAngle);
    ReadText(At(own, other, "MaxHRightAngle"), "deg", record.MaxHRightAngle);
}

inline void ReadHeadImpactOtherPillar(Node own, Node other, VEXMELKOtherPillarDefinition& record)
{
    ReadText(At(own, other, "HLeftAngle"), "deg", record.HLeftAngle);
    ReadText(At(own, other, "HRightAngle"), "deg", record.HRightAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline void ReadHeadImpactFrontHeader(Node own, Node other, VEXMELKFrontHeaderDefinition& record)
{
    ReadText(At(own, other, "FH1_Offset"), "mm", record.FH1_Offset);
    ReadText(At(own, other, "FH2_Offset"), "mm", record.FH2_Offset);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
    ReadText(At(own, other, "HAngle"), "deg", record.HAngle);
}

inline void ReadHeadImpactRearHeader(Node own, Node other, VEXMELKRearHeaderDefinition& record)
{
    ReadText(At(own, other, "RH_Offset"), "mm", record.RH_Offset);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
    ReadText(At(own, other, "HAngle"), "deg", record.HAngle);
}

inline void ReadHeadImpactSideRail(Node own, Node other, VEXMELKSideRailDefinition& record)
{
    ReadText(At(own, other, "SR1_Offset"), "mm", record.SR1_Offset);
    ReadText(At(own, other, "SR2_Offset"), "mm", record.SR2_Offset);
    ReadText(At(own, other, "SR3_Offset"), "mm", record.SR3_Offset);
    ReadText(At(own, other, "HLeftAngle"), "deg", record.HLeftAngle);
    ReadText(At(own, other, "HRightAngle"), "deg", record.HRightAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline void ReadHeadImpactSlidingDoorTrack(Node own, Node other, VEXMELKSlidingDoorTrackDefinition& record)
{
    ReadText(At(own, other, "HLeftAngle"), "deg", record.HLeftAngle);
    ReadText(At(own, other, "HRightAngle"), "deg", record.HRightAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline void ReadHeadImpactRollBar(Node own, Node other, VEXMELKRollBarDefinition& record)
{
    ReadText(At(own, other, "HAngle"), "deg", record.HAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline void ReadHeadImpactStiffenerBrace(Node own, Node other, VEXMELKStiffenerBraceDefinition& record)
{
    ReadText(At(own, other, "HLeftAngle"), "deg", record.HLeftAngle);
    ReadText(At(own, other, "HRightAngle"), "deg", record.HRightAngle);
    ReadText(At(own, other, "MinVAngle"), "deg", record.MinVAngle);
    ReadText(At(own, other, "MaxVAngle"), "deg", record.MaxVAngle);
}

inline void ReadLampPositionsLamp(Node own, Node other, VEXMELKLampPositionsDefinition& record)
{
    ReadText(At(own, other, "Abbr"), record.Abbr);
    ReadText(At(own, other, "Descr"), record.Descr);
    ReadFlag(At(own, other, "IsFront"), record.IsFront);
    ReadFlag(At(own, other, "IsBack"), record.IsBack);
    ReadFlag(At(own, other, "IsSide"), record.IsSide);
    ReadText(At(own, other, "MinVerticalSpace"), "mm", record.MinVerticalSpace);
    ReadText(At(own, other, "MaxVerticalSpace"), "mm", record.MaxVerticalSpace);
    ReadText(At(own, other, "MinInnerSpace"), "mm", record.MinInnerSpace);
    ReadText(At(own, other, "MinInnerSpace2"), "mm", record.MinInnerSpace2);
    ReadText(At(own, other, "MaxOuterSpace"), "mm", record.MaxOuterSpace);
    ReadText(At(own, other, "MaxOuterSpace2"), "mm", record.MaxOuterSpace2);
    ReadText(At(own, other, "MaxFrontSpace"), "mm", record.MaxFrontSpace);
    ReadText(At(own, other, "MaxFrontSpace2"), "mm", record.MaxFrontSpace2);
    ReadText(At(own, other, "MaxBackSpace"), "mm", record.MaxBackSpace);
    ReadText(At(own, other, "MaxBackSpace2"), "mm", record.MaxBackSpace2);
    ReadText(At(own, other, "LampColor"), record.LampColor);
    ReadText(At(own, other, "LampVisibility"), record.LampVisibility);
    ReadText(At(own, other, "WidthThreshold"), "mm", record.WidthThreshold);
    ReadText(At(own, other, "LengthThreshold"), "mm", record.LengthThreshold);
}

inline void ReadNumberPlates(Node own, Node other, VEXMELKNumberPlatesDefinition& record)
{
    ReadText(At(own, other, "FrontLowerLimit"), "mm", record.FrontLowerLimit);
    ReadText(At(own, other, "FrontUpperLimit"), "mm", record.FrontUpperLimit);
    ReadText(At(own, other, "FrontRightLimit"), "mm", record.FrontRightLimit);
    ReadText(At(own, other, "FrontLeftLimit"), "mm", record.FrontLeftLimit);
    ReadText(At(own, other, "BackLowerLimit"), "mm", record.BackLowerLimit);
    ReadText(At(own, other, "BackUpperLimit"), "mm", record.BackUpperLimit);
    ReadText(At(own, other, "BackRightLimit"), "mm", record.BackRightLimit);
    ReadText(At(own, other, "BackLeftLimit"), "mm", record.BackLeftLimit);
}

inline void ReadPPOffset(Node own, Node other, VEXMELKPPOffsetDefinition& record)
{
    ReadText(At(own, other, "calculation_type"), record.calculation_type);
    ReadMetres(At(own, other, "offset"), record.offset);
}

inline void ReadPPOffsetSection(Node own, Node other, VEXMELKPPOffsetDefinition& record)
{
    ReadText(At(own, other, "definition_type"), record.definition_type);
    ReadText(At(own, other, "profile_type"), record.profile_type);
    ReadMetres(At(own, other, "x_step"), record.x_step);
    ReadMetres(At(own, other, "y_step"), record.y_step);
    ReadText(At(own, other, "ref_part"), record.ref_part);
}

inline void ReadPPOffsetCurve(Node own, Node other, VEXPPOffsetCurveDefinition& record)
{
    ReadText(At(own, other, "type"), record.type);
    ReadMetres(At(own, other, "inner_offset"), record.inner_offset);
    ReadMetres(At(own, other, "outer_offset"), record.outer_offset);
}

inline void ReadPPOffsetRegion(Node own, Node other, VEXPPOffsetOuterRegionDefinition& record)
{
    ReadText(At(own, other, "measurement_type"), record.measurement_type);
    ReadMetres(At(own, other, "param_x"), record.param_x);
}

inline void ReadPedestrianProtection(Node own, Node other, PedestrianProtectionDefinition& record)
{
    ReadText(At(own, other, "CuttingStep"), "mm", record.cuttingStep);
    ReadFlag(At(own, other, "WrapAroundUseWindshield"), record.wrapAroundUseWindshield);
}

inline void ReadPedestrianProtectionCurve(Node own, Node other, TraceCurveDefinition& record)
{
    ReadText(At(own, other, "angle"), "deg", record.angle);
    ReadText(At(own, other, "length"), "mm", record.length);
    ReadText(At(own, other, "offset"), "mm", record.offset, "0.0mm");
    ReadText(At(own, other, "radiusLower"), "mm", record.radiusLower);
    ReadText(At(own, other, "radiusUpper"), "mm", record.radiusUpper);
    ReadText(At(own, other, "threshold"), "mm", record.threshold);
    ReadText(At(own, other, "tangent_selection"), record.tangent_selection, "lowest");
    ReadFlag(At(own, other, "use_upper_end"), record.use_upper_end);
    ReadFlag(At(own, other, "use_lower_end"), record.use_lower_end);
    ReadFlag(At(own, other, "use_left"), record.use_left);
    ReadFlag(At(own, other, "use_right"), record.use_right);
    ReadText(At(own, other, "curve_offset_type"), record.curve_offset_type, "WrapAround");
    ReadText(At(own, other, "curve_offset"), "mm", record.curve_offset, "0.0mm");
    ReadFlag(At(own, other, "warning"), record.warning);
    ReadText(At(own, other, "alternative_angle"), "deg", record.alternative_angle, "40.0deg");
}

inline void ReadPedestrianProtectionArea(Node own, Node other, PPBonnetTopDefinition& record)
{
    ReadText(At(own, other, "name"), record.name);
    ReadFlag(At(own, other, "detail"), record.detail);
    ReadInteger(At(own, other, "splitM"), record.splitM);
    ReadInteger(At(own, other, "splitN"), record.splitN);
}

inline void ReadPedestrianProtectionBoundary(Node own, Node other, PPBonnetTopBoundary& record)
{
    ReadText(At(own, other, "limit"), record.limit);
    ReadText(At(own, other, "offset"), "mm", record.offset);
    ReadText(At(own, other, "offset_type"), record.offset_type);
}

inline void ReadPedestrianProtectionFront(Node own, Node other, PPBonnetTopBoundary& record)
{
    ReadText(At(own, other, "checkDist"), "mm", record.checkDist);
    ReadText(At(own, other, "limit2"), record.limit2);
}

inline void ReadPedestrianProtectionRearTemplate(Node own, Node other, PPBonnetRearTemplateDefinition& record)
{
    ReadText(At(own, other, "startradius"), record.startradius);
    ReadText(At(own, other, "step"), record.step);
}

inline void ReadWheelCovering(Node own, Node other, VEXMELKWheelCoveringDefinition& record)
{
    ReadText(At(own, other, "FrontAlpha"), "deg", record.FrontAlpha);
    ReadText(At(own, other, "FrontBeta"), "deg", record.FrontBeta);
    ReadText(At(own, other, "BackAlpha"), "deg", record.BackAlpha);
    ReadText(At(own, other, "BackBeta"), "deg", record.BackBeta);
    KeepText(At(own, other, "BottomOffset"), "mm", record.BottomOffset);
    ReadText(At(own, other, "TriangleHeight"), "mm", record.TriangleHeight);
    ReadText(At(own, other, "LineHeight"), "mm", record.LineHeight);
    ReadFlag(At(own, other, "HasSpecialBack"), record.HasSpecialBack);
    ReadText(At(own, other, "AlgorithmType"), record.AlgorithmType);
    ReadText(At(own, other, "Tolerance"), record.Tolerance, "0.0m");
}

} // namespace ByHand

#endif
