#pragma once

#include <sqlite3.h>

#include <string>
#include <utility>
#include <vector>

#include "benchmarks/race.h"

// Keys and values in a table of SQLite's, and the statement that selects all of them prepared.
class Database {
 public:
  using Pairs = std::vector<std::pair<std::string, std::string>>;

  Database(const std::string& path, const Pairs& pairs) {
    bench::expect(sqlite3_open(path.c_str(), &database_) == SQLITE_OK, "a database");
    run("PRAGMA journal_mode=WAL; CREATE TABLE kv(k TEXT PRIMARY KEY, v) WITHOUT ROWID; BEGIN;");
    for (const auto& [key, value] : pairs)
      run("INSERT INTO kv VALUES('" + key + "', '" + value + "');");
    run("COMMIT");
    sqlite3_prepare_v2(database_, "SELECT k, v FROM kv", -1, &all_, nullptr);
  }
  ~Database() {
    sqlite3_finalize(all_);
    sqlite3_close(database_);
  }

  // Into the values' own memory, as a caller has to who keeps them.
  std::size_t copyAll() {
    Pairs pairs;
    while (sqlite3_step(all_) == SQLITE_ROW) pairs.emplace_back(column(0), column(1));
    sqlite3_reset(all_);
    bench::keep(pairs.data());
    return pairs.size();
  }

  std::size_t selectAll() {
    std::size_t rows = 0;
    for (; sqlite3_step(all_) == SQLITE_ROW; ++rows) {
      bench::keep(column(0));
      bench::keep(column(1));
    }
    sqlite3_reset(all_);
    return rows;
  }

 private:
  void run(const std::string& statements) {
    bench::expect(
        sqlite3_exec(database_, statements.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
        "a statement");
  }
  const char* column(int which) {
    return reinterpret_cast<const char*>(sqlite3_column_text(all_, which));
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt* all_ = nullptr;
};
