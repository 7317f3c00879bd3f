# Rscript fread.R FOLDER: reads the scans that make_data has written into FOLDER with data.table.
suppressPackageStartupMessages(library(data.table))
setDTthreads(1)
folder <- file.path(commandArgs(trailingOnly = TRUE)[1], "full")
paths <- file.path(folder, readLines(file.path(folder, "every1.LST")))
start <- proc.time()[["elapsed"]]
scans <- lapply(paths, fread, skip = 2, header = FALSE)
cat(sprintf("load/500/R fread %.3f\n", (proc.time()[["elapsed"]] - start) * 1000))
stopifnot(all(sapply(scans, nrow) == 2048))
