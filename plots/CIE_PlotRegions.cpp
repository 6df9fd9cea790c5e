// CIE_Plot: the regions drawn over the fill: gamuts, ANSI quadrangles, MacAdam ellipses, u'v'
// circles, user ellipses and their captions.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "CIE_Plot.h"

void CIE_Plot::drawGamuts(FXDCWindow& dc) {
    const bool oogMode = grayOutOfGamut || dimOutOfGamut || backgroundOutOfGamut;
    if (!drawGamutBoundary && oogMode) return;
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    dc.setForeground(blackColor);
    for (int g = 0; g < GamutClass::USER_GAMUT && !tenDegree; ++g) {
        if (!gamutSelected[g]) continue;
        const int n = gamut.getNumPointsInGamut(g);
        std::vector<double> xs(n), ys(n);
        gamut.getGamutPoints(g, xs.data(), ys.data());
        std::vector<Pt> poly;
        for (int k = 0; k < n; ++k) poly.push_back(toDiagram(xs[k], ys[k]));
        if (poly.empty()) continue;
        poly.push_back(poly.front());
        const int nd = gamut.getNumDahsesInGamutLine(g);
        if (solidGamutLines || nd <= 0) {
            dc.setLineStyle(LINE_SOLID);
        } else {
            char dashes[GamutClass::MAX_DASHES];
            gamut.getGamutLineStyleParameters(g, dashes);
            for (int k = 0; k < nd; ++k) dashes[k] = static_cast<char>(dashes[k] * scaleFactor);
            dc.setDashes(0, dashes, nd);
            dc.setLineStyle(LINE_ONOFF_DASH);
        }
        drawPolyline(dc, poly.data(), static_cast<int>(poly.size()));
    }
    dc.setLineStyle(LINE_SOLID);
    if (gamutSelected[GamutClass::USER_GAMUT]) {
        for (const std::vector<Pt>& poly : userGamuts) {
            std::vector<Pt> d;
            for (const Pt& p : poly) d.push_back(toDiagram(p.x, p.y));
            drawPolyline(dc, d.data(), static_cast<int>(d.size()));
        }
    }
}

// MacAdam ellipses or u'v' circles at the marked points (or at one given x,y). On the 10 degree
// u'v' diagram, and only there, MacAdam ellipses wait for an explicit allowance; the 10 degree
// x,y diagram is not restricted, and that asymmetry is kept.
void CIE_Plot::drawEllipses(FXDCWindow& dc, bool macAdam) {
    const EllipseInfo& info = macAdam ? macAdamInfo : circleInfo;
    if (macAdam && diagramType == 4 && !macAdamOn10Deg) return;
    std::vector<Pt> centres;
    if (info.single) {
        centres.push_back({info.x, info.y});
    } else {
        const std::vector<bool>& at = macAdam ? macAdamAtPoint : circleAtPoint;
        for (int i = 0; i < numPoints; ++i) {
            if (at[i] && !secondaryPoint[i]) centres.push_back(toXY(points[i].x, points[i].y));
        }
    }
    std::vector<double> steps;
    for (int s = 1; s < NUM_STEP_FLAGS; ++s) {
        if (info.steps[s]) steps.push_back(s);
    }
    if (info.steps[10] && info.user > 0.0001) steps.push_back(info.user);
    constexpr int N = NUM_ELLIPSE_POINTS + 1;
    double xs[N], ys[N];
    dc.setForeground(ellipseColor);
    dc.setLineWidth(info.thick ? 2 * lineWidth : lineWidth);
    for (const Pt& c : centres) {
        for (double s : steps) {
            if (macAdam) {
                double a, b, th, g11, g12, g22;
                vantrel.getMacAdamEllipseArray_xy(N, s, c.x, c.y, xs, ys, &a, &b, &th, &g11, &g12,
                                                  &g22);
            } else {
                Vantrel::getUpVpEllipseArray_xy(N, s, c.x, c.y, xs, ys);
            }
            drawEllipseXY(dc, xs, ys);
        }
    }
    dc.setLineWidth(lineWidth);
}

void CIE_Plot::drawUserEllipses(FXDCWindow& dc) {
    constexpr int N = NUM_ELLIPSE_POINTS + 1;
    double xs[N], ys[N];
    dc.setForeground(ellipseColor);
    auto draw = [&](const UserEllipse& e, double steps) {
        Vantrel::getUserdefinedMacAdamEllipseArray_xy(N, steps, e.x, e.y, e.a, e.b, e.theta, xs,
                                                      ys);
        drawEllipseXY(dc, xs, ys);
    };
    if (drawUserEllipseFlag) draw(userEllipse, userEllipseSteps);
    if (drawUserEllipseArrayFlag) {
        for (const UserEllipse& e : userEllipses) draw(e, userEllipseArraySteps);
    }
}

// ANSI C78.376 ellipses at four steps.
void CIE_Plot::drawANSIEllipses(FXDCWindow& dc) {
    constexpr int N = NUM_ELLIPSE_POINTS + 1;
    double xs[N], ys[N];
    bool macAdamCaption = false;
    for (int s = 1; s < NUM_STEP_FLAGS; ++s)
        macAdamCaption = macAdamCaption || macAdamInfo.steps[s];
    dc.setForeground(ellipseColor);
    dc.setLineWidth(ansiThick && macAdamCaption ? 2 * lineWidth : lineWidth);
    for (int i = 0; i < static_cast<int>(ansiEllipseEnabled.size()); ++i) {
        if (!ansiEllipseEnabled[i]) continue;
        Vantrel::getANSIMacAdamEllipseArray_xy(i, N, 4.0, xs, ys);
        drawEllipseXY(dc, xs, ys);
    }
    dc.setLineWidth(lineWidth);
}

// 2015 always solid; older editions dashed when drawn together with newer ones.
void CIE_Plot::drawAnsiQuadrangles(FXDCWindow& dc) {
    if (diagramType > 2) return;
    const bool show[3] = {show2008Bins, show2011Bins, show2015Bins};
    const int shown = show[0] + show[1] + show[2];
    dc.setForeground(gridColor);
    for (int e = 0; e < 3; ++e) {
        if (!show[e]) continue;
        int dash = 0;
        if (e == 0 && shown == 2) dash = 8 * scaleFactor;
        if (e == 0 && shown == 3) dash = 2 * scaleFactor;
        if (e == 1 && show2015Bins) dash = 8 * scaleFactor;
        if (dash > 0) {
            const char dashes[2] = {static_cast<char>(dash), static_cast<char>(dash)};
            dc.setDashes(0, dashes, 2);
            dc.setLineStyle(LINE_ONOFF_DASH);
        } else {
            dc.setLineStyle(LINE_SOLID);
        }
        const double(*corners)[4][2];
        const int* nominal;
        const int n = getAnsiQuadrangles(e == 0 ? 2008 : e == 1 ? 2011 : 2015, &corners, &nominal);
        for (int q = 0; q < n; ++q) {
            Pt p[5];
            for (int k = 0; k < 5; ++k)
                p[k] = toDiagram(corners[q][k % 4][0], corners[q][k % 4][1]);
            drawPolyline(dc, p, 5);
        }
    }
    dc.setLineStyle(LINE_SOLID);
}

namespace {
// "1, 2, 3.5" from the enabled steps and a user value (0 to 2 decimals, the fewest within
// 0.001).
std::string stepList(const bool* steps, double user) {
    std::string out;
    char text[32];
    for (int s = 1; s < 11; ++s) {
        if (!steps[s]) continue;
        std::snprintf(text, sizeof text, "%d, ", s);
        out += text;
    }
    if (steps[10] && user > 0.0001) {
        int d = 0;
        while (d < 2 && std::fabs(user * std::pow(10.0, d) - std::round(user * std::pow(10.0, d))) *
                                std::pow(10.0, -d) >
                            0.001) {
            ++d;
        }
        std::snprintf(text, sizeof text, "%.*lf, ", d, user);
        out += text;
    }
    if (out.size() >= 2) out.erase(out.size() - 2);
    return out;
}
}  // namespace

void CIE_Plot::drawCaptions(FXDCWindow& dc) {
    const bool macAdamShown = !(diagramType == 4 && !macAdamOn10Deg);
    const std::string m = macAdamShown ? stepList(macAdamInfo.steps, macAdamInfo.user) : "";
    const std::string c = stepList(circleInfo.steps, circleInfo.user);
    char first[96] = "", second[96] = "";
    if (!m.empty()) std::snprintf(first, sizeof first, "%s MacAdam ellipses     ", m.c_str());
    if (!c.empty()) std::snprintf(second, sizeof second, "%s u'v' circles", c.c_str());
    if (!first[0] && !second[0]) return;
    const int w1 = font->getTextWidth(first), w2 = boldFont->getTextWidth(second);
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    const int x = (left + right - w1 - w2) / 2, y = bottom - font->getFontHeight() / 2;
    dc.setForeground(textColor());
    // The caption shows whole or not at all, and only over a diagram that has a point.
    if (numPoints < 1) return;
    const bool shown = !first[0] || placeLabel(dc, x, y, first);
    if (shown && second[0]) {
        dc.setFont(boldFont);
        placeLabel(dc, x + w1, y, second, boldFont);
        dc.setFont(font);
    }
}

void CIE_Plot::defineBinBoxesAndPlot(FXCanvas* canvas, int count, const CIE_PlotBin* quads,
                                     const bool* filled) {
    if (count < 1) {
        showBinBoxes = false;
        return;
    }
    binBoxes.assign(quads, quads + count);
    binFilled.assign(filled, filled + count);
    showBinBoxes = true;
    diagramChanged = true;
    if (canvas) drawPlot(canvas);
}

// Deliberate: the stored corners go through the u,v (or u',v') to x,y conversion and are then
// placed as they come out, on every 2 degree diagram; bin files depend on it.
void CIE_Plot::drawBinBoxes(FXDCWindow& dc) {
    if (!showBinBoxes || diagramType > 2) return;
    for (size_t b = 0; b < binBoxes.size(); ++b) {
        FXPoint p[4];
        for (int k = 0; k < 4; ++k) {
            double x = binBoxes[b].x[k], y = binBoxes[b].y[k];
            if (diagramType == 1)
                Vantrel::get_xy_from_uv(binBoxes[b].x[k], binBoxes[b].y[k], &x, &y);
            if (diagramType == 2) {
                Vantrel::get_xy_from_upvp(binBoxes[b].x[k], binBoxes[b].y[k], &x, &y);
            }
            p[k].x = static_cast<FXshort>(static_cast<int>(x_to_screen(x)));
            p[k].y = static_cast<FXshort>(static_cast<int>(y_to_screen(y)));
        }
        if (binFilled[b]) {
            dc.setForeground(gridColor);
            dc.fillPolygon(p, 4);
        }
        dc.setForeground(blackColor);
        for (int k = 0; k < 4; ++k) dc.drawLine(p[k].x, p[k].y, p[(k + 1) % 4].x, p[(k + 1) % 4].y);
    }
}
