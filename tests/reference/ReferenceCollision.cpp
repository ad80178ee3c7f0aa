#include "tests/reference/CReferenceWorld.h"

#include <cmath>

namespace
{

// The tolerances are doubles: floats are widened for the comparison.
constexpr double c_dTolerance = 0.001;
constexpr double c_dRest = 1e-5;
constexpr double c_dEpsilon = 1e-10;
constexpr float c_fJitter = 0.1F;
constexpr float c_fHalf = 0.5F;

bool IsClearlyAbove(float value, double limit)
{
    return static_cast<double>(value) - limit > c_dEpsilon;
}

bool IsClearlyBelow(float value, double limit)
{
    return limit - static_cast<double>(value) > c_dEpsilon;
}

bool IsAtRest(float speed)
{
    return static_cast<double>(speed) - -c_dRest >= -c_dEpsilon && static_cast<double>(speed) - c_dRest <= c_dEpsilon;
}

// True if the spacing of floats is so large here that the jitter rounds to zero.
bool SwallowsJitter(float coordinate)
{
    return coordinate + c_fJitter == coordinate && coordinate - c_fJitter == coordinate;
}

} // namespace

void ReferenceCollision(CAtom& a, CAtom& b, CRandom& random)
{
    float dx = a.x - b.x;
    float dy = a.y - b.y;
    float d = std::sqrt(dx * dx + dy * dy);
    const auto s = static_cast<float>(a.radius + b.radius);
    if (!(s >= d))
    {
        return;
    }
    float overlap = s - d;
    while (IsClearlyAbove(overlap, c_dTolerance))
    {
        while (IsClearlyBelow(d, c_dTolerance))
        {
            if (SwallowsJitter(a.x) && SwallowsJitter(a.y) && SwallowsJitter(b.x) && SwallowsJitter(b.y))
            {
                return; // no step can separate these two, and at distance 0 there is no normal
            }
            const float jx = random.GetRandomNumber_Float(-c_fJitter, c_fJitter);
            const float jy = random.GetRandomNumber_Float(-c_fJitter, c_fJitter);
            a.x += jx;
            a.y += jy;
            b.x -= jx;
            b.y -= jy;
            dx = a.x - b.x;
            dy = a.y - b.y;
            d = std::sqrt(dx * dx + dy * dy);
        }
        const float sx = dx / d * overlap * c_fHalf;
        const float sy = dy / d * overlap * c_fHalf;
        const float ax = a.x;
        const float ay = a.y;
        const float bx = b.x;
        const float by = b.y;
        a.x += sx;
        a.y += sy;
        b.x -= sx;
        b.y -= sy;
        dx = a.x - b.x;
        dy = a.y - b.y;
        d = std::sqrt(dx * dx + dy * dy);
        overlap = s - d;
        if (a.x == ax && a.y == ay && b.x == bx && b.y == by)
        {
            break; // the rest of the overlap is smaller than the spacing of these floats
        }
    }

    const float nx = dx / d;
    const float ny = dy / d;
    const float an = a.vx * nx + a.vy * ny;
    const float at = -ny * a.vx + nx * a.vy;
    const float bn = b.vx * nx + b.vy * ny;
    const float bt = -ny * b.vx + nx * b.vy;
    const float sa = a.speed;
    const float sb = b.speed;

    a.vx = at * (-ny) + bn * nx;
    a.vy = at * nx + bn * ny;
    b.vx = bt * (-ny) + an * nx;
    b.vy = bt * nx + an * ny;
    a.speed = std::sqrt(a.vx * a.vx + a.vy * a.vy);
    b.speed = std::sqrt(b.vx * b.vx + b.vy * b.vy);

    const float c = ((sa + sb) - (a.speed + b.speed)) * c_fHalf;
    const float fa = IsAtRest(a.speed) ? 1.0F : (a.speed + c) / a.speed;
    const float fb = IsAtRest(b.speed) ? 1.0F : (b.speed + c) / b.speed;
    a.vx *= fa;
    a.vy *= fa;
    a.speed = std::sqrt(a.vx * a.vx + a.vy * a.vy);
    b.vx *= fb;
    b.vy *= fb;
    b.speed = std::sqrt(b.vx * b.vx + b.vy * b.vy);
}
