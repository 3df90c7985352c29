#include "standalone/dataset/case_blocks.h"

#include <cstdint>

#include "standalone/cases/block_codec.h"
#include "standalone/text/error.h"

namespace standalone {

namespace {

/// The codec does not know the file.
template <typename Decode>
void DecodeOrFail(const Database& database, const Decode& decode) {
  try {
    decode();
  } catch (const Error& error) {
    RethrowUnless(error, ErrorKind::kDamaged);
    database.FailAsDamaged();
  }
}

}  // namespace

std::size_t CaseBlocks::Count() {
  if (!fCount) {
    Query last(fDatabase, "SELECT id FROM block ORDER BY id DESC LIMIT 1");
    const std::int64_t id = last.Step() ? last.Integer(0) : -1;
    if (id < -1) {
      fDatabase.FailAsDamaged();
    }
    const auto count = static_cast<std::size_t>((id >> 32) + 1);
    FailUnlessComplete(count);
    fCount = count;
  }
  return *fCount;
}

/// Blocks that are lost at the end leave no gap.
void CaseBlocks::FailUnlessComplete(std::size_t count) {
  std::uint64_t cases = 0;
  for (std::size_t number = 0; number < count; ++number) {
    cases += CasesOf(number);
  }
  Query row(fDatabase, "SELECT case_count FROM meta");
  if (!row.Step() || cases != static_cast<std::uint64_t>(row.Integer(0))) {
    fDatabase.FailAsDamaged();
  }
}

/// As the first variable has them.
std::size_t CaseBlocks::CasesOf(std::size_t number) {
  while (fCases.size() <= number) {
    fCases.push_back(LoadHead(0, fCases.size()).cases);
  }
  return fCases[number];
}

BlockHead CaseBlocks::LoadHead(int variable, std::size_t number) {
  Query row(fDatabase, "SELECT head FROM block WHERE id = ?");
  if (!row.Bind(IdOfBlock(variable, number)).Step()) {
    fDatabase.FailAsDamaged();
  }
  const std::string_view bytes = row.Blob(0);
  BlockHead head;
  DecodeOrFail(fDatabase, [&] { head = DecodeHead(bytes); });
  return head;
}

BlockHead CaseBlocks::ReadHead(Column column, std::size_t number) {
  BlockHead head = LoadHead(column.variable, number);
  if (head.isNumeric != column.isNumeric || head.cases != CasesOf(number)) {
    fDatabase.FailAsDamaged();
  }
  return head;
}

void CaseBlocks::ReadBlock(Column column, std::size_t number, Block& block) {
  const std::size_t cases = CasesOf(number);
  Query row(fDatabase, "SELECT head, cells FROM block WHERE id = ?");
  if (!row.Bind(IdOfBlock(column.variable, number)).Step()) {
    fDatabase.FailAsDamaged();
  }
  const std::string_view head = row.Blob(0);
  const std::string_view cells = row.Blob(1);
  DecodeOrFail(fDatabase, [&] { DecodeBlock(head, cells, block); });
  if (block.isNumeric != column.isNumeric || block.cases != cases) {
    fDatabase.FailAsDamaged();
  }
}

}  // namespace standalone
