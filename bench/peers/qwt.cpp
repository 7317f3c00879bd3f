// peer_qwt FOLDER: the full plot, a curve with discs and a line for each scan, drawn as the widget draws it.

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_renderer.h>
#include <qwt_symbol.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "bench/peers/plot_points.h"

namespace {

using namespace halvern::bench;

void AddScans(QwtPlot& plot, const PlotPoints& points) {
    for (int scan = 0; scan < kScans; ++scan) {
        const auto first = static_cast<std::size_t>(scan) * kPoints;
        auto* const curve = new QwtPlotCurve();
        curve->setRawSamples(&points.x[first], &points.y[first], kPoints);
        const QColor colour(QRgb(0xFF000000U | ColourOf(scan)));
        curve->setPen(colour, 0.0);
        auto* const symbol = new QwtSymbol(QwtSymbol::Ellipse, colour, QPen(colour), QSize(3, 3));
        symbol->setCachePolicy(QwtSymbol::Cache);
        curve->setSymbol(symbol);
        curve->setPaintAttribute(QwtPlotCurve::FilterPoints, true);
        curve->setPaintAttribute(QwtPlotCurve::ClipPolygons, true);
        curve->attach(&plot);
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QwtPlot plot;
    plot.setAutoReplot(false);
    plot.setAxisTitle(QwtPlot::xBottom, "Radius (cm)");
    plot.setAxisTitle(QwtPlot::yLeft, "Fringes");
    const PlotPoints points = ReadPlotPoints(argc > 1 ? argv[1] : ".");
    AddScans(plot, points);
    plot.setAxisScale(QwtPlot::yLeft, kYMin, kYMax);
    MeasurePictures("Qwt", [&](const PictureRow& picture) {
        plot.setAxisScale(QwtPlot::xBottom, picture.xMin, picture.xMax);
        plot.resize(picture.width, picture.height);
        plot.replot();
        QImage image(picture.width, picture.height, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QwtPlotRenderer().render(&plot, &painter, plot.rect());
    });
}
