#include "simulation/HandleAtomCollision.h"

#include "classes/core/CRandom.h"
#include "diagnostics/Guard.h"
#include "simulation/CDrawAtOnce.h"
#include "simulation/CollisionResponse.h"

#include <cmath>

namespace
{

template<class Atom>
float GetDistance(const Atom& a, const Atom& b)
{
    const float dx = a.x - b.x;
    const float dy = a.y - b.y;
    return std::sqrt(dx * dx + dy * dy);
}

// True if the coordinate is so large that the largest jitter does not change it; then no smaller one does either.
bool IsBeyondJitter(float coordinate)
{
    return coordinate + c_fMaxJitter == coordinate && coordinate - c_fMaxJitter == coordinate;
}

bool CanJitter(const CCellAtom& a, const CCellAtom& b)
{
    return !(IsBeyondJitter(a.x) && IsBeyondJitter(a.y) && IsBeyondJitter(b.x) && IsBeyondJitter(b.y));
}

} // namespace

bool JitterCentresApart(CCellAtom& a, CCellAtom& b, IDrawTurn& turn)
{
    while (GetDistance(a, b) <= c_fCoincidenceLimit)
    {
        if (!CanJitter(a, b))
        {
            return false;
        }
        CRandom& random = turn.Await();
        const float jx = random.GetRandomNumber_Float(-c_fMaxJitter, c_fMaxJitter);
        const float jy = random.GetRandomNumber_Float(-c_fMaxJitter, c_fMaxJitter);
        a.x += jx;
        a.y += jy;
        b.x -= jx;
        b.y -= jy;
    }
    return true;
}

void HandleAtomCollision(CAtom& a, CAtom& b, CRandom& random)
{
    const auto collide = [&] {
        if (static_cast<float>(a.radius + b.radius) >= GetDistance(a, b))
        {
            CDrawAtOnce turn(random);
            RespondToTouch(a, b, turn);
        }
    };
    Guarded({nullptr, __TIMESTAMP__}, collide);
}
