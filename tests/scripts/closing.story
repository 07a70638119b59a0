Closing in the middle of a comparison ends it without a message and leaves the stored results.
== files ==
d/a same
d/b same
program/相同文件.txt kept
== script ==
select ROOT/d
call Picture2_Click
at_yield 4 quit
call Picture3_Click
show file_count
== output ==
== file 相同文件.txt ==
kept
