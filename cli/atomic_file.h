#pragma once

#include <QByteArray>

#include <string>

namespace orbkl4::cli {

/// Puts `content` into the file at `path` in one step: whenever the computer stops, the file holds
/// either all of it or what it held before. Throws `Failure::System`.
void ReplaceFile(const std::string& path, const QByteArray& content);

/// Makes `folder` and those above it that are missing, to last; throws `Failure::System`.
void MakeFolders(const std::string& folder);

}  // namespace orbkl4::cli
