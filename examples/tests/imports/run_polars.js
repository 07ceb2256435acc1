// Does in nodejs-polars what statements for polars in Python ask for; prints the cells of each.
const pl = require("nodejs-polars").default;

const types = { String: pl.String, Int64: pl.Int64, Float64: pl.Float64 };

function read(plan) {
    const options = {
        sep: plan.separator,
        quoteChar: plan.quote === null ? "" : plan.quote,
        hasHeader: plan.header,
        skipLines: plan.skip,
        schema: Object.fromEntries(plan.schema.map(([name, type]) => [name, types[type]])),
        nullValues: plan.nulls,
        decimalComma: plan.comma,
        encoding: plan.lossy ? "utf8-lossy" : "utf8",
        truncateRaggedLines: false, // the default of polars in Python
    };
    if (plan.comment !== null) {
        options.commentPrefix = plan.comment;
    }
    let data = pl.readCSV(Buffer.from(plan.bytes, "hex"), options);
    for (const change of plan.changes) {
        const type = change.type === "Date" ? pl.Date : pl.Datetime("ms");
        data = data.withColumn(pl.col(change.column).str.strptime(type, change.format));
    }
    return data;
}

function token(value) {
    if (value === null || value === undefined) {
        return null;
    }
    if (value instanceof Date) {
        return "t:" + value.toISOString().slice(0, 19).replace("T", " ");
    }
    return (typeof value === "string" ? "s:" : "n:") + String(value);
}

const plans = JSON.parse(require("fs").readFileSync(0, "utf8"));
const results = plans.map((plan) => {
    try {
        const data = read(plan);
        const columns = data.columns.map((name) => data.getColumn(name).toArray().map(token));
        return { names: data.columns, rows: columns[0].map((_, i) => columns.map((column) => column[i])) };
    } catch (error) {
        return { error: String(error) };
    }
});
process.stdout.write(JSON.stringify(results));
