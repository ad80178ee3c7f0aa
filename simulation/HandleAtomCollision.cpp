#include "simulation/HandleAtomCollision.h"

#include "classes/core/CRandom.h"
#include "classes/core/Dbl.h"
#include "diagnostics/Guard.h"
#include "simulation/SimulationConstants.h"

#include <cmath>

// The order of every operation below is binding: floats are not associative, and a seed must give the same world on
// every machine and in every build.
namespace
{

// The line of centres of a pair; it points from b to a.
struct CCentreLine
{
    float dx;
    float dy;
    float d;

    CCentreLine(const CAtom& a, const CAtom& b) : dx(a.x - b.x), dy(a.y - b.y), d(std::sqrt(dx * dx + dy * dy)) {}
};

bool IsCoincident(const CCentreLine& line)
{
    return Dbl_IsSmaller(static_cast<double>(line.d), c_dCoincidenceDistance, c_dEpsilon);
}

// Whether the coordinate is so large that no jitter changes it: then rounding swallows the smaller ones too.
bool IsBeyondJitter(float coordinate)
{
    return coordinate + c_fMaxJitter == coordinate && coordinate - c_fMaxJitter == coordinate;
}

bool CanJitter(const CAtom& a, const CAtom& b)
{
    return !(IsBeyondJitter(a.x) && IsBeyondJitter(a.y) && IsBeyondJitter(b.x) && IsBeyondJitter(b.y));
}

// Moves the centres by random steps until the line between them has a direction. False where that cannot be: millions
// of units away from the origin both positions swallow every step.
bool JitterApart(CAtom& a, CAtom& b, CCentreLine& line, CRandom& random)
{
    while (IsCoincident(line))
    {
        if (!CanJitter(a, b))
        {
            return false;
        }
        const float jx = random.GetRandomNumber_Float(-c_fMaxJitter, c_fMaxJitter);
        const float jy = random.GetRandomNumber_Float(-c_fMaxJitter, c_fMaxJitter);
        a.x += jx;
        a.y += jy;
        b.x -= jx;
        b.y -= jy;
        line = CCentreLine(a, b);
    }
    return true;
}

// Moves each atom half of the overlap along the line of centres. False when rounding has swallowed the move: none of
// the four coordinates has changed, so no further pass would change them either.
bool MoveApart(CAtom& a, CAtom& b, const CCentreLine& line, float overlap)
{
    const float sx = line.dx / line.d * overlap * c_fHalf;
    const float sy = line.dy / line.d * overlap * c_fHalf;
    const CAtom oldA = a;
    const CAtom oldB = b;
    a.x += sx;
    a.y += sy;
    b.x -= sx;
    b.y -= sy;
    return a.x != oldA.x || a.y != oldA.y || b.x != oldB.x || b.y != oldB.y;
}

// Pushes the atoms apart until they just touch; walls and other atoms are not looked at. False when the centres
// coincide and cannot be jittered apart, so that there is no line of centres.
bool Separate(CAtom& a, CAtom& b, CCentreLine& line, float radiusSum, CRandom& random)
{
    float overlap = radiusSum - line.d;
    bool bMoved = true;
    while (bMoved && Dbl_IsBigger(static_cast<double>(overlap), c_dSeparationTolerance, c_dEpsilon))
    {
        if (!JitterApart(a, b, line, random))
        {
            return false;
        }
        bMoved = MoveApart(a, b, line, overlap);
        line = CCentreLine(a, b);
        overlap = radiusSum - line.d;
    }
    return true;
}

// Equal masses, fully elastic: the components along the normal change places, the tangential ones stay.
void ExchangeNormalComponents(CAtom& a, CAtom& b, float nx, float ny)
{
    const float an = a.vx * nx + a.vy * ny;
    const float at = -ny * a.vx + nx * a.vy;
    const float bn = b.vx * nx + b.vy * ny;
    const float bt = -ny * b.vx + nx * b.vy;
    a.vx = at * -ny + bn * nx;
    a.vy = at * nx + bn * ny;
    b.vx = bt * -ny + an * nx;
    b.vy = bt * nx + an * ny;
    a.speed = std::sqrt(a.vx * a.vx + a.vy * a.vy);
    b.speed = std::sqrt(b.vx * b.vx + b.vy * b.vy);
}

// Changes the magnitude of a velocity by the correction; an atom practically at rest keeps its own.
void CorrectSpeed(CAtom& atom, float correction)
{
    const bool bAtRest =
        Dbl_IsInRangeInclusive(static_cast<double>(atom.speed), -c_dRestSpeed, c_dRestSpeed, c_dEpsilon);
    const float factor = bAtRest ? 1.0F : (atom.speed + correction) / atom.speed;
    atom.vx *= factor;
    atom.vy *= factor;
    atom.speed = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
}

void Collide(CAtom& a, CAtom& b, CRandom& random)
{
    CCentreLine line(a, b);
    const auto radiusSum = static_cast<float>(a.radius + b.radius);
    if (!(radiusSum >= line.d) || !Separate(a, b, line, radiusSum, random))
    {
        return;
    }
    const float oldSpeedSum = a.speed + b.speed;
    ExchangeNormalComponents(a, b, line.dx / line.d, line.dy / line.d);
    const float correction = (oldSpeedSum - (a.speed + b.speed)) * c_fHalf;
    CorrectSpeed(a, correction);
    CorrectSpeed(b, correction);
}

} // namespace

void HandleAtomCollision(CAtom& a, CAtom& b, CRandom& random)
{
    Guarded({nullptr, __TIMESTAMP__}, [&] { Collide(a, b, random); });
}
