// Clang's visitor on the text of the tree of Walk.cpp.

#include "support/GeneratedSource.h"
#include "support/PerItem.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/RecursiveASTVisitor.h>
#include <clang/Frontend/ASTUnit.h>
#include <clang/Tooling/Tooling.h>

#include <benchmark/benchmark.h>

#include <functional>

namespace zt::orvex::benchmarks {
namespace {

/// Passes every node to a function object, as our walk does.
class Caller : public clang::RecursiveASTVisitor<Caller> {
public:
    explicit Caller(const std::function<void(const void*)>& toCall) : callback(toCall) {}

    bool VisitStmt(clang::Stmt* node) { return callback(node), true; }
    bool VisitDecl(clang::Decl* node) { return callback(node), true; }
    bool VisitTypeLoc(clang::TypeLoc node) { return callback(node.getOpaqueData()), true; }

private:
    const std::function<void(const void*)>& callback;
};

void walkClang(benchmark::State& state) {
    static const auto unit = clang::tooling::buildASTFromCodeWithArgs(
        generatedSource().text, {"-w", "-fsyntax-only", "-xc"}, "input.c");
    std::uint64_t count = 0;
    const std::function<void(const void*)> callback = [&count](const void*) { ++count; };
    for (auto _ : state) {
        count = 0;
        Caller(callback).TraverseAST(unit->getASTContext());
    }
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(walkClang)->Name("walk/clang_RecursiveASTVisitor")->MinTime(WALK_SECONDS);

} // namespace
} // namespace zt::orvex::benchmarks
