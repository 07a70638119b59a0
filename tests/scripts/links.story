Links: a link to a file is no copy, a link to a directory is followed once and last, a loop ends at once.
== files ==
d/real/f content
elsewhere/g content
d/file_link -> d/real/f
d/loop -> d
d/new_place -> elsewhere
d/again -> elsewhere
== script ==
select ROOT/d
call search_check_m_Click
show ListView1
== output ==
message	...相同文件有:1个...
rows	1	list_mode	0	visible	1
1	1	0	7	0	ROOT/d/.../g	0	ROOT/d/real/f	0
== file 文件清单.txt ==
ROOT/d/.../g
ROOT/d/real/f
