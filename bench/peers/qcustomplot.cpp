// peer_qcustomplot FOLDER: the full plot, a graph with discs and a line for each scan.

#include <qcustomplot.h>

#include <QApplication>

#include "bench/peers/plot_points.h"

namespace {

using namespace halvern::bench;

void AddScans(QCustomPlot& plot, const PlotPoints& points) {
    for (int scan = 0; scan < kScans; ++scan) {
        const auto first = static_cast<std::ptrdiff_t>(scan) * kPoints;
        QCPGraph* const graph = plot.addGraph();
        graph->setData(QVector<double>(points.x.begin() + first, points.x.begin() + first + kPoints),
                       QVector<double>(points.y.begin() + first, points.y.begin() + first + kPoints), true);
        const QColor colour(QRgb(0xFF000000U | ColourOf(scan)));
        graph->setPen(QPen(colour, 0));
        graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, colour, 3));
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCustomPlot plot;
    plot.setNotAntialiasedElements(QCP::aeAll);
    plot.xAxis->setLabel("Radius (cm)");
    plot.yAxis->setLabel("Fringes");
    AddScans(plot, ReadPlotPoints(argc > 1 ? argv[1] : "."));
    plot.yAxis->setRange(kYMin, kYMax);
    MeasurePictures("QCustomPlot", [&](const PictureRow& picture) {
        plot.xAxis->setRange(picture.xMin, picture.xMax);
        const QPixmap drawn = plot.toPixmap(picture.width, picture.height);
        if (drawn.isNull())
            std::exit(1);
    });
}
