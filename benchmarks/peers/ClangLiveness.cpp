#include "peers/ClangLiveness.h"

#include "support/ThreadClock.h"

#include <clang/AST/ASTContext.h>
#include <clang/Analysis/Analyses/LiveVariables.h>
#include <clang/Analysis/AnalysisDeclContext.h>
#include <clang/Analysis/CFG.h>
#include <clang/Frontend/ASTUnit.h>
#include <clang/Tooling/Tooling.h>

#include <stdexcept>

namespace zt::orvex::benchmarks {

struct ClangProgram::Parsed {
    std::unique_ptr<clang::ASTUnit> unit;
    const clang::FunctionDecl* function = nullptr;
};

ClangProgram::ClangProgram(const GeneratedProgram& program) : parsed(std::make_unique<Parsed>()) {
    parsed->unit = clang::tooling::buildASTFromCodeWithArgs(
        renderAsC(program), {"-w", "-fsyntax-only", "-xc"}, "input.c");
    for (clang::Decl* declaration : parsed->unit->getASTContext().getTranslationUnitDecl()->decls())
        if (auto* function = llvm::dyn_cast<clang::FunctionDecl>(declaration)) {
            if (function->hasBody()) parsed->function = function;
        }
}

ClangProgram::~ClangProgram() = default;

double ClangProgram::analyse(LiveWords& liveAtEntry) const {
    clang::CFG::BuildOptions options;
    options.setAllAlwaysAdd();
    const double begin = threadSeconds();
    double analysed = 0;
    double answered = 0;
    {
        clang::AnalysisDeclContext context(nullptr, parsed->function, options);
        const clang::CFG* const graph = context.getCFG();
        const auto live = clang::LiveVariables::computeLiveness(context, true);
        if (!live) throw std::runtime_error("Clang declined");
        analysed = threadSeconds();
        liveAtEntry.assign((parsed->function->getNumParams() + 63) / 64, 0);
        std::size_t index = 0;
        for (const clang::ParmVarDecl* parameter : parsed->function->parameters()) {
            if (live->isLive(&graph->getEntry(), parameter)) {
                liveAtEntry[index / 64] |= std::uint64_t{1} << (index % 64);
            }
            ++index;
        }
        answered = threadSeconds();
    }
    return threadSeconds() - answered + analysed - begin;
}

} // namespace zt::orvex::benchmarks
