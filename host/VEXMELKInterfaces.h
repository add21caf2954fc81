// Enumerations of the application's interface library, and the texts that stand for them in the files.
#ifndef VEXMELKInterfaces_H
#define VEXMELKInterfaces_H

struct VEXIMELKEyes
{
    enum EyesType : int
    {
        NoEyes = 0,      // no type given, or one that is not known
        SinglePoint = 1, // "single_point"
        SinglePair = 2   // "single_pair"
    };
};

struct VEXIMELKEyePoints
{
    enum PointCoordType : int
    {
        Length = 0,
        SteeringWheelCenter = 1 // "steering_wheel_center": taken from there by the caller
    };
};

// The test set-up of a bumper.
enum BumperType : int
{
    MiddlePendulum = 0,  // "MiddlePendulum"
    RotatedPendulum = 1, // "RotatedPendulum"
    ShiftedPendulum = 2  // "ShiftedPendulum"
};

struct VEXIMELKCrashBarrier
{
    enum ShapeType : int
    {
        RCAR2004Front = 0, // "RCAR 2004 Front"
        RCAR2004Rear = 1,  // "RCAR 2004 Rear"
        RCAR2006 = 2       // "RCAR 2006"
    };
    enum PositionType : int
    {
        Front = 0, // "front"
        Rear = 1,  // "rear"
        Left = 2,  // "left"
        Right = 3  // "right"
    };
    enum OverlappingSide : int
    {
        LeftSide = 0, // "left", and also "front"
        RightSide = 1 // "right", and also "rear"
    };
};

#endif
