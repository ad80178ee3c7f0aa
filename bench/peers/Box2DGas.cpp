#include "bench/peers/IPeerGas.h"

#include <box2d/box2d.h>

#include <vector>

namespace
{

// The engine is tuned for bodies of 0.1 to 10 metres and limits motion to 2 metres per step. With a tenth of a metre
// per world unit both hold.
constexpr float c_fMetresPerUnit = 0.1F;
constexpr float c_fSecondsPerStep = 1.0F;
constexpr float c_fWallUnits = 100; // thick enough that no disc passes through

// Collisions here are between two discs at a time, so one pass of the solver is enough; stacks need more.
constexpr int c_iVelocityPasses = 1;
constexpr int c_iPositionPasses = 1;

b2FixtureDef MakeElasticFixture(const b2Shape& shape)
{
    b2FixtureDef fixture;
    fixture.shape = &shape;
    fixture.density = 1;
    fixture.friction = 0;
    fixture.restitution = 1;
    fixture.restitutionThreshold = 0; // slow collisions are elastic too
    return fixture;
}

class CBox2DGas final : public IPeerGas
{
public:
    CBox2DGas(const CSize<int>& world, std::span<const CAtom> atoms) : m_World(b2Vec2(0, 0))
    {
        m_World.SetAllowSleeping(false);
        m_World.SetContinuousPhysics(false); // not needed, as the walls are thick
        AddWalls(static_cast<float>(world.cx), static_cast<float>(world.cy));
        m_Discs.reserve(atoms.size());
        for (const CAtom& atom : atoms)
        {
            AddDisc(atom);
        }
    }

    void Step() override { m_World.Step(c_fSecondsPerStep, c_iVelocityPasses, c_iPositionPasses); }

    double GetEnergy() const override
    {
        double energy = 0;
        for (const b2Body* pDisc : m_Discs)
        {
            const b2Vec2 velocity = (1 / c_fMetresPerUnit) * pDisc->GetLinearVelocity();
            energy += static_cast<double>(velocity.LengthSquared()) / 2;
        }
        return energy;
    }

private:
    void AddWall(float x, float y, float width, float height)
    {
        b2PolygonShape shape;
        const b2Vec2 half(c_fMetresPerUnit * width / 2, c_fMetresPerUnit * height / 2);
        shape.SetAsBox(half.x, half.y, b2Vec2(c_fMetresPerUnit * x + half.x, c_fMetresPerUnit * y + half.y), 0);
        const b2FixtureDef fixture = MakeElasticFixture(shape);
        const b2BodyDef standing;
        m_World.CreateBody(&standing)->CreateFixture(&fixture);
    }

    void AddWalls(float width, float height)
    {
        AddWall(-c_fWallUnits, -c_fWallUnits, c_fWallUnits, height + 2 * c_fWallUnits);
        AddWall(width, -c_fWallUnits, c_fWallUnits, height + 2 * c_fWallUnits);
        AddWall(0, -c_fWallUnits, width, c_fWallUnits);
        AddWall(0, height, width, c_fWallUnits);
    }

    void AddDisc(const CAtom& atom)
    {
        b2BodyDef body;
        body.type = b2_dynamicBody;
        body.position.Set(c_fMetresPerUnit * atom.x, c_fMetresPerUnit * atom.y);
        body.linearVelocity.Set(c_fMetresPerUnit * atom.vx, c_fMetresPerUnit * atom.vy);
        body.fixedRotation = true;
        b2CircleShape shape;
        shape.m_radius = c_fMetresPerUnit * static_cast<float>(atom.radius);
        const b2FixtureDef fixture = MakeElasticFixture(shape);
        b2Body* const pDisc = m_World.CreateBody(&body);
        pDisc->CreateFixture(&fixture);
        // All have the same mass, whatever their radius.
        b2MassData mass;
        mass.mass = 1;
        mass.center.SetZero();
        mass.I = 0;
        pDisc->SetMassData(&mass);
        m_Discs.push_back(pDisc);
    }

    b2World m_World;
    std::vector<b2Body*> m_Discs; // owned by m_World
};

} // namespace

std::unique_ptr<IPeerGas> MakeBox2DGas(const CSize<int>& world, std::span<const CAtom> atoms)
{
    return std::make_unique<CBox2DGas>(world, atoms);
}
