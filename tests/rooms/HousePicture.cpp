#include "tests/rooms/HousePicture.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace
{

// Lengths in pixels.
constexpr int c_iMargin = 16;
constexpr int c_iRowHeight = 30;
constexpr int c_iBoxHeight = 24;
constexpr int c_iFloorX = 32; // middle of the numbers
constexpr int c_iBoxX = 52;
constexpr int c_iNameCharacterWidth = 8; // more than the average width in any usual font
constexpr int c_iContentsWidth = 390;
constexpr int c_iArrowStep = 17;
constexpr int c_iLegendHeight = 62;
constexpr int c_iLegendSide = 14;
constexpr int c_iPadding = 10;
constexpr int c_iTextDrop = 4; // from the middle of a text to its base line
constexpr int c_iHeadDrop = 5; // from the middle of a row to the tip of an arrow

constexpr std::string_view c_sFloorColour = "#c3cbd1";
constexpr std::string_view c_sGuideColour = "#e7ebee";
constexpr std::string_view c_sArrowColour = "#6b7883";
constexpr std::string_view c_sDotColour = "#22292f";
constexpr std::string_view c_sWrongColour = "#d1242f";

constexpr std::string_view c_sStyle =
    "<defs><style>text{font-family:\"Segoe UI\",\"DejaVu Sans\",Arial,sans-serif;fill:#22292f;font-size:12px}"
    ".room{font-size:13px;font-weight:600}.floor{fill:#55606a;text-anchor:middle}</style></defs>\n";

struct CKindLook
{
    EnumRoomKind eKind;
    std::string_view sColour;
    std::string_view sLegend;
};

constexpr std::array<CKindLook, 5> c_Looks{{{EnumRoomKind::Portable, "#dcefd8", "portable"},
                                            {EnumRoomKind::Windows, "#d6e4f7", "Windows only"},
                                            {EnumRoomKind::Both, "#d5eeee", "portable and Windows"},
                                            {EnumRoomKind::Tool, "#ececec", "for developers"},
                                            {EnumRoomKind::Tests, "#f7ecd0", "tests"}}};

std::string_view GetColour(EnumRoomKind eKind)
{
    return std::find_if(c_Looks.begin(), c_Looks.end(), [eKind](const CKindLook& look) { return look.eKind == eKind; })
        ->sColour;
}

bool Includes(const CGraph& folders, const CRoom& from, const CRoom& to)
{
    const auto arrows = folders.find(from.sFolder);
    return arrows != folders.end() && arrows->second.contains(to.sFolder);
}

bool IsDrawn(const CRoom& room, const std::vector<CRoom>& rooms, const CGraph& folders)
{
    return room.eKind != EnumRoomKind::Tests || std::any_of(rooms.begin(), rooms.end(), [&](const CRoom& user) {
               return user.eKind != EnumRoomKind::Tests && Includes(folders, user, room);
           });
}

std::string EscapeXml(std::string_view sText)
{
    std::string sEscaped;
    for (const char c : sText)
    {
        switch (c)
        {
        case '&':
            sEscaped += "&amp;";
            break;
        case '<':
            sEscaped += "&lt;";
            break;
        case '>':
            sEscaped += "&gt;";
            break;
        case '"':
            sEscaped += "&quot;";
            break;
        default:
            sEscaped += c;
        }
    }
    return sEscaped;
}

std::string Text(int iX, int iMiddle, std::string_view sClass, std::string_view sText)
{
    return fmt::format("<text x=\"{}\" y=\"{}\" class=\"{}\">{}</text>\n", iX, iMiddle + c_iTextDrop, sClass,
                       EscapeXml(sText));
}

std::string Box(int iX, int iMiddle, int iWidth, int iHeight, EnumRoomKind eKind)
{
    return fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" rx=\"4\" fill=\"{}\" stroke=\"#55606a\"/>\n",
                       iX, iMiddle - iHeight / 2, iWidth, iHeight, GetColour(eKind));
}

std::string HorizontalLine(int iX, int iY, int iEndX, std::string_view sColour)
{
    return fmt::format("<path d=\"M{} {} H{}\" stroke=\"{}\"/>\n", iX, iY, iEndX, sColour);
}

class CHousePicture
{
public:
    CHousePicture(const std::vector<CRoom>& rooms, const CGraph& folders) : m_Folders(folders)
    {
        for (const CRoom& room : rooms)
        {
            if (IsDrawn(room, rooms, folders))
            {
                m_Rows.push_back(&room);
            }
        }
        for (const CRoom* const pRoom : m_Rows)
        {
            if (CountUsers(*pRoom) > 0)
            {
                m_Targets.push_back(pRoom);
            }
        }
        m_iHidden = static_cast<int>(rooms.size() - m_Rows.size());
        std::size_t uLongestName = 0;
        for (const CRoom* const pRoom : m_Rows)
        {
            uLongestName = std::max(uLongestName, pRoom->sFolder.size());
        }
        m_iBoxWidth = static_cast<int>(uLongestName) * c_iNameCharacterWidth + 2 * c_iPadding;
        m_iContentsX = c_iBoxX + m_iBoxWidth + c_iPadding;
        m_iGuideX = m_iContentsX + c_iContentsWidth;
        m_iWidth = m_iGuideX + (static_cast<int>(m_Targets.size()) + 1) * c_iArrowStep + c_iMargin;
    }

    std::string Draw() const
    {
        const int iHeight = GetTop(m_Rows.size()) + c_iLegendHeight;
        std::string sSvg = fmt::format(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {0} {1}\" width=\"{0}\" height=\"{1}\" "
            "role=\"img\" aria-label=\"The rooms of Kinetarium, from the highest floor to the ground, with "
            "an arrow from each room to every room that it includes\">\n{2}"
            "<rect width=\"{0}\" height=\"{1}\" rx=\"6\" fill=\"#ffffff\"/>\n",
            m_iWidth, iHeight, c_sStyle);
        sSvg += DrawTests() + DrawFloors();
        for (std::size_t uRow = 0; uRow < m_Rows.size(); ++uRow)
        {
            sSvg += DrawRoom(*m_Rows[uRow], GetMiddle(uRow));
        }
        for (std::size_t uTarget = 0; uTarget < m_Targets.size(); ++uTarget)
        {
            sSvg += DrawArrow(*m_Targets[uTarget], m_iGuideX + (static_cast<int>(uTarget) + 1) * c_iArrowStep);
        }
        return sSvg + DrawLegend(GetTop(m_Rows.size())) + "</svg>\n";
    }

private:
    // The first row belongs to the tests.
    static int GetTop(std::size_t uRow) { return c_iMargin + (static_cast<int>(uRow) + 1) * c_iRowHeight; }
    static int GetMiddle(std::size_t uRow) { return GetTop(uRow) + c_iRowHeight / 2; }

    std::ptrdiff_t CountUsers(const CRoom& room) const
    {
        return std::count_if(m_Rows.begin(), m_Rows.end(),
                             [&](const CRoom* pUser) { return Includes(m_Folders, *pUser, room); });
    }

    std::string DrawRow(std::string_view sName, EnumRoomKind eKind, std::string_view sContents, int iMiddle) const
    {
        return Box(c_iBoxX, iMiddle, m_iBoxWidth, c_iBoxHeight, eKind) +
               Text(c_iBoxX + c_iPadding, iMiddle, "room", sName) + Text(m_iContentsX, iMiddle, "plain", sContents);
    }

    std::string DrawTests() const
    {
        const std::string sContents =
            fmt::format("{} more rooms mirror these; no room of the product includes them", m_iHidden);
        return DrawRow("tests", EnumRoomKind::Tests, sContents, c_iMargin + c_iRowHeight / 2);
    }

    // Draws a line above each floor, and its number.
    std::string DrawFloors() const
    {
        std::string sSvg;
        for (std::size_t uRow = 0; uRow < m_Rows.size();)
        {
            std::size_t uEnd = uRow;
            while (uEnd < m_Rows.size() && m_Rows[uEnd]->iFloor == m_Rows[uRow]->iFloor)
            {
                ++uEnd;
            }
            sSvg += HorizontalLine(c_iMargin, GetTop(uRow), m_iWidth - c_iMargin, c_sFloorColour);
            sSvg += Text(c_iFloorX, (GetTop(uRow) + GetTop(uEnd)) / 2, "floor", std::to_string(m_Rows[uRow]->iFloor));
            uRow = uEnd;
        }
        return sSvg;
    }

    // Adds a line that leads the eye to the arrows.
    std::string DrawRoom(const CRoom& room, int iMiddle) const
    {
        return DrawRow(room.sFolder, room.eKind, room.sContents, iMiddle) +
               HorizontalLine(m_iGuideX, iMiddle, m_iWidth - c_iMargin, c_sGuideColour);
    }

    // Draws a dot for each user, a line through them, and the head at the room that they include.
    std::string DrawArrow(const CRoom& target, int iX) const
    {
        int iHead = 0;
        int iTop = GetTop(m_Rows.size());
        int iBottom = 0;
        bool bDownwards = true;
        std::string sDots;
        for (std::size_t uRow = 0; uRow < m_Rows.size(); ++uRow)
        {
            const CRoom& room = *m_Rows[uRow];
            const int iMiddle = GetMiddle(uRow);
            const bool bTarget = &room == &target;
            const bool bUser = Includes(m_Folders, room, target);
            iHead = bTarget ? iMiddle : iHead;
            iTop = bTarget || bUser ? std::min(iTop, iMiddle) : iTop;
            iBottom = bTarget || bUser ? iMiddle : iBottom;
            if (bUser)
            {
                const bool bRight = room.iFloor > target.iFloor;
                bDownwards = bDownwards && bRight;
                sDots += fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"4\" fill=\"{}\"/>\n", iX, iMiddle,
                                     bRight ? c_sDotColour : c_sWrongColour);
            }
        }
        const std::string_view sColour = bDownwards ? c_sArrowColour : c_sWrongColour;
        return fmt::format("<path d=\"M{0} {1} V{2}\" stroke=\"{3}\"/>\n"
                           "<path d=\"M{0} {4} l-5 -10 h10 z\" fill=\"{3}\"/>\n",
                           iX, iTop, iBottom, sColour, iHead + c_iHeadDrop) +
               sDots;
    }

    std::string DrawLegend(int iTop) const
    {
        std::string sSvg = HorizontalLine(c_iMargin, iTop, m_iWidth - c_iMargin, c_sFloorColour);
        const int iMiddle = iTop + c_iLegendHeight / 3;
        const int iStep = (m_iWidth - c_iMargin - c_iBoxX) / static_cast<int>(c_Looks.size());
        int iX = c_iBoxX;
        for (const CKindLook& look : c_Looks)
        {
            sSvg += Box(iX, iMiddle, c_iLegendSide, c_iLegendSide, look.eKind);
            sSvg += Text(iX + c_iLegendSide + c_iPadding, iMiddle, "plain", look.sLegend);
            iX += iStep;
        }
        return sSvg + Text(c_iBoxX, iTop + 2 * c_iLegendHeight / 3, "plain",
                           "Each vertical line falls from the rooms with a dot to the room that they include. The "
                           "numbers are floors: an include may only point to a lower one.");
    }

    const CGraph& m_Folders;
    std::vector<const CRoom*> m_Rows;
    std::vector<const CRoom*> m_Targets;
    int m_iHidden{}; // rooms that share the row of the tests
    int m_iBoxWidth{};
    int m_iContentsX{};
    int m_iGuideX{}; // the left end of the lines to the arrows
    int m_iWidth{};
};

} // namespace

std::string DrawHouse(const std::vector<CRoom>& rooms, const CGraph& folders)
{
    return CHousePicture(rooms, folders).Draw();
}
