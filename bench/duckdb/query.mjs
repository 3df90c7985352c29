// Runs SQL in a DuckDB database: query.mjs DATABASE SQL. Prints as JSON the rows of the last statement, and the milliseconds
// that it took without the start of the process.
import { existsSync } from "node:fs";
import { DuckDBInstance } from "@duckdb/node-api";

const [database, sql] = process.argv.slice(2);
const mode = existsSync(database) ? "READ_ONLY" : "READ_WRITE";
const instance = await DuckDBInstance.create(database, { access_mode: mode });
const connection = await instance.connect();
const begin = performance.now();
const reader = await connection.runAndReadAll(sql);
const rows = reader.getRowsJson();
console.log(JSON.stringify({ milliseconds: performance.now() - begin, rows }));
connection.closeSync();
instance.closeSync();
