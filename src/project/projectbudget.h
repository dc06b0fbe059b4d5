#pragma once
#include <QSize>
#include <QString>

class Project;

// How much one project may hold. Loading and every import charge what a
// file asks for before anything is made, against the one limit here, so a
// hostile file cannot cost gigabytes and an import can never save a project
// that will not load again. Costs are the bytes the model keeps, roughly:
// a real project (a 1024 × 1024 map, 512 tiles, 16,384 sprites, 256 blocks)
// uses a small part of it.
class ProjectBudget
{
public:
#ifdef TINTOREL_FUZZ
    // A fuzzer meets the limit thousands of times: the same refusals, at a
    // size that an instrumented build crosses in milliseconds.
    static constexpr qint64 Limit = qint64(8) << 20;
#else
    static constexpr qint64 Limit = qint64(512) << 20;
#endif

    static qint64 mapCost(const QSize& cells);
    static qint64 animationCost(const QSize& cells, qint64 frames);
    // An 8-bit picture: tile sheets, sprite strips, images.
    static qint64 pictureCost(const QSize& pixels);
    // Records of a list: placed blocks and sprites, tiles, colours.
    static qint64 recordsCost(qint64 count);

    // What a project holds now.
    static qint64 costOf(const Project& project);

    ProjectBudget() = default;
    // Starts from what `project` holds already.
    explicit ProjectBudget(const Project& project);

    // Adds `cost` for `what` (say "map Level 1"); false once the total is
    // past the limit, with the reason in problem().
    bool charge(qint64 cost, const QString& what);
    qint64 total() const { return mTotal; }
    QString problem() const { return mProblem; }

private:
    qint64 mTotal = 0;
    QString mProblem;
};
