// Runs statements for DuckDB. The file given as the argument has a JSON list of folder, statement and the
// name of the table that it makes, of which the cells are printed. A statement may read standard input.
const { DuckDBInstance } = require("@duckdb/node-api");

function token(value, type) {
    if (value === null) {
        return null;
    }
    if (type === "VARCHAR") {
        return "s:" + value;
    }
    if (type === "DATE") {
        return "t:" + value + " 00:00:00";
    }
    return (type.startsWith("TIMESTAMP") ? "t:" : "n:") + String(value);
}

async function run([folder, statement, table]) {
    process.chdir(folder);
    const instance = await DuckDBInstance.create(":memory:");
    const connection = await instance.connect();
    await connection.run(statement);
    const result = await connection.runAndReadAll(`SELECT * FROM "${table}"`);
    const types = result.columnTypes().map(String);
    const rows = result.getRowsJson().map((row) => row.map((value, i) => token(value, types[i])));
    return { names: result.columnNames(), rows };
}

async function runAll(jobs) {
    const results = [];
    for (const job of jobs) {
        results.push(await run(job).catch((error) => ({ error: String(error) })));
    }
    process.stdout.write(JSON.stringify(results));
}

runAll(JSON.parse(require("fs").readFileSync(process.argv[2], "utf8")));
