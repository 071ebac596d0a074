// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT
//
// What scripts/tidy loads into clang-tidy. Every check of clang-tidy 14 walks through all that a
// file includes, and then throws away what it found in the headers of the system: two thirds of its
// time. With this they walk through the project's own code only; clang-tidy 21 does so by itself.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendAction.h>
#include <clang/Frontend/FrontendPluginRegistry.h>
#include <memory>
#include <string>
#include <vector>

namespace {

class OwnCode : public clang::ASTConsumer {
  void HandleTranslationUnit(clang::ASTContext& context) override {
    const clang::SourceManager& sources = context.getSourceManager();
    std::vector<clang::Decl*> own;
    for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
      const clang::SourceLocation place = declaration->getLocation();
      if (place.isValid() && !sources.isInSystemHeader(place)) {
        own.push_back(declaration);
      }
    }
    context.setTraversalScope(own);
  }
};

class OwnCodeOnly : public clang::PluginASTAction {
  std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& /*compiler*/,
                                                        llvm::StringRef /*file*/) override {
    return std::make_unique<OwnCode>();
  }
  bool ParseArgs(const clang::CompilerInstance& /*compiler*/,
                 const std::vector<std::string>& /*arguments*/) override {
    return true;
  }
  ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<OwnCodeOnly> added("own-code-only", "");

}  // namespace
