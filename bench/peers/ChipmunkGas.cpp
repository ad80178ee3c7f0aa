#include "bench/peers/IPeerGas.h"

#include <chipmunk/chipmunk.h>

#include <cmath>
#include <vector>

namespace
{

constexpr cpFloat c_dTimePerStep = 1;
constexpr cpFloat c_dWallUnits = 100; // thick enough that no disc passes through
constexpr cpFloat c_dHashCell = 10;   // the largest diameter, as the manual of the engine advises
constexpr int c_iSolverPasses = 1;    // collisions here are between two discs at a time

class CChipmunkGas final : public IPeerGas
{
public:
    CChipmunkGas(const CSize<int>& world, std::span<const CAtom> atoms) : m_pSpace(cpSpaceNew())
    {
        cpSpaceSetIterations(m_pSpace, c_iSolverPasses);
        // Faster than the tree for many discs of similar size.
        cpSpaceUseSpatialHash(m_pSpace, c_dHashCell, static_cast<int>(atoms.size()));
        AddWalls(world.cx, world.cy);
        m_Bodies.reserve(atoms.size());
        for (const CAtom& atom : atoms)
        {
            AddDisc(atom);
        }
    }

    ~CChipmunkGas() override
    {
        for (cpShape* pShape : m_Shapes)
        {
            cpSpaceRemoveShape(m_pSpace, pShape);
            cpShapeFree(pShape);
        }
        for (cpBody* pBody : m_Bodies)
        {
            cpSpaceRemoveBody(m_pSpace, pBody);
            cpBodyFree(pBody);
        }
        cpSpaceFree(m_pSpace);
    }

    CChipmunkGas(const CChipmunkGas&) = delete;
    CChipmunkGas& operator=(const CChipmunkGas&) = delete;

    void Step() override { cpSpaceStep(m_pSpace, c_dTimePerStep); }

    double GetEnergy() const override
    {
        double energy = 0;
        for (const cpBody* pBody : m_Bodies)
        {
            energy += cpvlengthsq(cpBodyGetVelocity(pBody)) / 2;
        }
        return energy;
    }

private:
    void AddShape(cpShape* pShape)
    {
        cpShapeSetElasticity(pShape, 1);
        cpShapeSetFriction(pShape, 0);
        m_Shapes.push_back(cpSpaceAddShape(m_pSpace, pShape));
    }

    // A wall is a segment with a radius; the radius keeps the discs that far away.
    void AddWall(cpVect from, cpVect to)
    {
        AddShape(cpSegmentShapeNew(cpSpaceGetStaticBody(m_pSpace), from, to, c_dWallUnits));
    }

    void AddWalls(cpFloat width, cpFloat height)
    {
        const cpFloat right = width + c_dWallUnits;
        const cpFloat bottom = height + c_dWallUnits;
        AddWall(cpv(-c_dWallUnits, -c_dWallUnits), cpv(-c_dWallUnits, bottom));
        AddWall(cpv(right, -c_dWallUnits), cpv(right, bottom));
        AddWall(cpv(-c_dWallUnits, -c_dWallUnits), cpv(right, -c_dWallUnits));
        AddWall(cpv(-c_dWallUnits, bottom), cpv(right, bottom));
    }

    void AddDisc(const CAtom& atom)
    {
        // An infinite moment of inertia: no spin.
        cpBody* const pBody = cpSpaceAddBody(m_pSpace, cpBodyNew(1, HUGE_VAL));
        cpBodySetPosition(pBody, cpv(static_cast<cpFloat>(atom.x), static_cast<cpFloat>(atom.y)));
        cpBodySetVelocity(pBody, cpv(static_cast<cpFloat>(atom.vx), static_cast<cpFloat>(atom.vy)));
        m_Bodies.push_back(pBody);
        AddShape(cpCircleShapeNew(pBody, atom.radius, cpvzero));
    }

    cpSpace* m_pSpace;
    std::vector<cpBody*> m_Bodies;
    std::vector<cpShape*> m_Shapes;
};

} // namespace

std::unique_ptr<IPeerGas> MakeChipmunkGas(const CSize<int>& world, std::span<const CAtom> atoms)
{
    return std::make_unique<CChipmunkGas>(world, atoms);
}
