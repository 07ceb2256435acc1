# Runs statements, each in a file of the folder given first, in the folder that stands on its first line
# as a comment, and writes the cells of each beside it: parted by 0x1f and 0x1e, as they may hold anything
# else.

token <- function(values) {
  kind <- if (inherits(values, "POSIXct")) {
    paste0("t:", format(values, "%Y-%m-%d %H:%M:%S", tz = "UTC"))
  } else if (inherits(values, "Date")) {
    paste0("t:", format(values, "%Y-%m-%d"), " 00:00:00")
  } else if (is.numeric(values)) {
    paste0("n:", sprintf("%.17g", as.numeric(values)))
  } else {
    paste0("s:", enc2utf8(as.character(values)))
  }
  ifelse(is.na(values), "-", kind)
}

run <- function(path) {
  lines <- readLines(path, encoding = "UTF-8")
  setwd(sub("^# ", "", lines[1]))
  scope <- new.env()
  suppressWarnings(eval(parse(text = lines, encoding = "UTF-8"), scope))
  data <- as.data.frame(scope$data)
  cells <- lapply(seq_along(data), function(i) token(data[[i]]))
  rows <- if (nrow(data) == 0) character() else do.call(paste, c(cells, sep = "\x1f"))
  paste(c(paste(enc2utf8(names(data)), collapse = "\x1f"), rows), collapse = "\x1e")
}

suppressPackageStartupMessages({
  if (requireNamespace("readr", quietly = TRUE)) library(readr)
  if (requireNamespace("data.table", quietly = TRUE)) library(data.table)
})
for (path in list.files(commandArgs(TRUE)[1], pattern = "[.]statement$", full.names = TRUE)) {
  result <- tryCatch(run(path), error = function(e) paste0("error: ", conditionMessage(e)))
  writeBin(charToRaw(enc2utf8(result)), sub("statement$", "cells", path))
}
