// The references: the same pictures by a general paint library, the same bytes set, read and written.
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"
#include "full_game.h"
#include "shell/all_shapes.h"
#include "shell/print_shapes.h"

#include <QImage>
#include <QPainter>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace {

QImage ImageLike(const Surface& surface) {
    return {surface.Width(), surface.Height(), QImage::Format_RGB32};
}

QPolygon PainterPolygon(const PolygonPoints& points) {
    QPolygon polygon;
    for (const Vertex vertex : Drawn(points)) polygon << QPoint(vertex.X, vertex.Y);
    return polygon;
}

std::vector<QPolygon> PiecePolygons() {
    std::vector<QPolygon> polygons;
    PolygonPoints points;
    for (int p = 0; p < PieceCount; ++p) {
        BuildPolygon(p, NearestInt16(Game.PieceTurn[p]), Game.BoardX0 + Game.PieceX[p],
                     Game.BoardY0 + Game.PieceY[p], points);
        polygons.push_back(PainterPolygon(points));
    }
    return polygons;
}

/// How many bytes the polygons cover, with their outlines, on both surfaces of the board.
std::size_t BytesOnBothSurfaces(std::size_t pieces) {
    std::size_t pixels = 0;
    PolygonPoints points;
    for (int p = 0; p < static_cast<int>(pieces); ++p) {
        BuildPolygon(p, NearestInt16(Game.PieceTurn[p]), Game.BoardX0 + Game.PieceX[p],
                     Game.BoardY0 + Game.PieceY[p], points);
        Surface alone(FormMain.Image.Width(), FormMain.Image.Height(), 1);
        alone.FillStyle = FillMode::Solid;
        Polygon(alone, Drawn(points));
        pixels += static_cast<std::size_t>(alone.CountOf(0, 0, 0, alone.Width() - 1, alone.Height() - 1));
    }
    return 2 * pixels * sizeof(Surface::Pixel);
}

void SetBytes(benchmark::State& state, std::size_t count) {
    std::vector<unsigned char> bytes(count);
    int value = 0;
    for (auto step : state) {
        std::memset(bytes.data(), ++value, bytes.size());
        benchmark::ClobberMemory();
    }
    state.counters["bytes"] = static_cast<double>(count);
}

// A drag of the last piece draws the first six; a full redraw draws all seven.
BENCHMARK_F(FullGame, BytesOfDragStep)(benchmark::State& state) {
    SetBytes(state, BytesOnBothSurfaces(PieceCount - 1));
}
BENCHMARK_F(FullGame, BytesOfFullRedraw)(benchmark::State& state) {
    SetBytes(state, BytesOnBothSurfaces(PieceCount));
}

BENCHMARK_F(FullGame, PainterDragStep)(benchmark::State& state) {
    const std::vector<QPolygon> polygons = PiecePolygons();
    QImage board = ImageLike(FormMain.Image), pickMap = ImageLike(FormMain.Image);
    QPainter onBoard(&board), onPickMap(&pickMap);
    const QBrush inside(Qt::darkCyan);
    for (auto step : state) {
        for (std::size_t p = 0; p < polygons.size() - 1; ++p)
            for (QPainter* painter : {&onBoard, &onPickMap}) {
                painter->setPen(Qt::black);
                painter->setBrush(inside);
                painter->drawPolygon(polygons[p]);
            }
        onBoard.setBrush(Qt::NoBrush);
        for (const Qt::GlobalColor colour : {Qt::gray, Qt::white}) {
            onBoard.setPen(colour);
            onBoard.drawPolygon(polygons.back());
        }
    }
}

/// The polygons of a page in their order, and their cells.
struct Thumbnail {
    QPolygon Polygon;
    int Column;
    int Row;
};
std::vector<Thumbnail> Thumbnails;

void PaintPage(benchmark::State& state, PageLayout layout) {
    Thumbnails.clear();
    layout.WriteLabel = [](Surface&, int, int column, int row) {
        Thumbnails.push_back({PainterPolygon(Game.TargetPoly), column, row});
    };
    DrawPage(layout);
    QImage page = ImageLike(layout.Window.Image);
    QPainter painter(&page);
    const int cell = layout.GridStep / layout.Window.Image.UnitsPerPixel;
    for (auto step : state)
        for (const Thumbnail& one : Thumbnails) {
            const QRect box(QPoint(cell * (one.Column - 1), 0), QPoint(cell * one.Column, cell * one.Row));
            painter.setBrush(Qt::NoBrush);
            painter.setPen(Qt::white);
            painter.drawRect(box);
            painter.setPen(Qt::darkGray);
            painter.drawRect(box.translated(1, 1));
            painter.setPen(Qt::black);
            painter.setBrush(Qt::black);
            painter.drawPolygon(one.Polygon);
        }
}
BENCHMARK_F(FullGame, PainterViewAllPage)(benchmark::State& state) {
    PaintPage(state, AllShapesPage());
}
BENCHMARK_F(FullGame, PainterPrintPage)(benchmark::State& state) {
    PaintPage(state, PrintShapesPage());
}

BENCHMARK_F(FullGame, StreamedNumbers)(benchmark::State& state) {
    for (auto step : state) {
        std::ifstream file(Folder / "QUILLET.qui");
        std::string line;
        for (int n = 1; n <= 65; ++n) std::getline(file, line);
        double number = 0, sum = 0;
        for (; file >> number; file.ignore()) sum += number;
        benchmark::DoNotOptimize(sum);
    }
}

BENCHMARK_F(FullGame, PlainScan)(benchmark::State& state) {
    const Surface& board = FormMain.Picture1.Image;
    const Surface::Pixel sought = *board.Row(0);
    for (auto step : state) {
        int count = 0;
        for (int y = 20; y <= 340; ++y)
            for (int x = 20; x <= 340; ++x) count += board.Row(y)[x] == sought;
        benchmark::DoNotOptimize(count);
    }
}

/// Writes and syncs; the benchmark ends where that fails.
void WriteBare(benchmark::State& state, const std::string& path, int flags, const std::string& text) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | flags, 0666);
    if (::write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()) || ::fsync(file) != 0)
        state.SkipWithError("the disk refused a write");
    ::close(file);
}

// Remove writes the collection to the temporary file and then over the old one, Append adds a record.
BENCHMARK_F(FullGame, BareWrites)(benchmark::State& state) {
    const std::string text = FullCollection(), record = text.substr(text.rfind('\n', text.size() - 2) + 1);
    for (auto step : state) {
        WriteBare(state, Folder / "QuiFile.tmp", O_TRUNC, text);
        WriteBare(state, Folder / "QUILLET.qui", 0, text);
        WriteBare(state, Folder / "QUILLET.qui", O_APPEND, record);
        if (::truncate((Folder / "QUILLET.qui").c_str(), static_cast<off_t>(text.size())) != 0)
            state.SkipWithError("the file could not be cut");
    }
}

} // namespace
