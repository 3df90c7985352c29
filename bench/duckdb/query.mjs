// Runs SQL in a DuckDB database and prints the rows of the last statement as JSON: query.mjs DATABASE SQL
import { existsSync } from "node:fs";
import { DuckDBInstance } from "@duckdb/node-api";

const [database, sql] = process.argv.slice(2);
const mode = existsSync(database) ? "READ_ONLY" : "READ_WRITE";
const instance = await DuckDBInstance.create(database, { access_mode: mode });
const connection = await instance.connect();
const reader = await connection.runAndReadAll(sql);
console.log(JSON.stringify(reader.getRowsJson()));
connection.closeSync();
instance.closeSync();
