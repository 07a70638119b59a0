Marks by rule: one of each group stays, the question says how much goes, undo and redo walk back and forth.
== files ==
d/in/long/a one text
d/a one text
d/a(1) one text
d/b other
d/b-副本 other
== script ==
select ROOT/d
call search_check_m_Click
# What is named as a copy goes first, then all but the shortest path.
answer yes
call mark_copy_names
answer yes
call keep_shortest
show ListView1
call undo_marks
show ListView1
call redo_marks
call redo_marks
show ListView1
call clear_marks
call invert_marks
# The folders in their order; a no marks nothing.
answer ROOT/d/in|ROOT/d
answer no
call keep_by_folders
show ListView1
# Newest and oldest ask the disk.
answer dismissed
call keep_newest
answer yes
call keep_longest
call invert_marks
show ListView1
== output ==
message	检查同内容文件完毕	已　检　查:5 个文件 \r\n相同文件有:3个,占用空间21 字节  用时: 0:0:...	ok	1000
message	提示	标记名称像副本的: 将标记 2 个文件, 13 字节	yesno	1000
message	提示	保留路径最短的: 将标记 1 个文件, 8 字节	yesno	1000
rows	3	list_mode	0	visible	1
1	1	0	8	0	ROOT/d/a	0	ROOT/d/a(1)	255
2	2	0	8	0	ROOT/d/a	2147483665	ROOT/d/in/long/a	255
3	3	0	5	0	ROOT/d/b	0	ROOT/d/b-副本	255
rows	3	list_mode	0	visible	1
1	1	0	8	0	ROOT/d/a	0	ROOT/d/a(1)	255
2	2	0	8	0	ROOT/d/a	2147483665	ROOT/d/in/long/a	0
3	3	0	5	0	ROOT/d/b	0	ROOT/d/b-副本	255
rows	3	list_mode	0	visible	1
1	1	0	8	0	ROOT/d/a	0	ROOT/d/a(1)	255
2	2	0	8	0	ROOT/d/a	2147483665	ROOT/d/in/long/a	255
3	3	0	5	0	ROOT/d/b	0	ROOT/d/b-副本	255
input	输入框	按次序保留哪些目录里的, 用 | 分开\r\n
message	提示	按目录次序保留: 将标记 3 个文件, 21 字节	yesno	1000
rows	3	list_mode	0	visible	1
1	1	0	8	0	ROOT/d/a	0	ROOT/d/a(1)	0
2	2	0	8	0	ROOT/d/a	2147483665	ROOT/d/in/long/a	0
3	3	0	5	0	ROOT/d/b	0	ROOT/d/b-副本	0
message	提示	保留最新的: 将标记 3 个文件, 21 字节	yesno	1000
message	提示	保留路径最长的: 将标记 3 个文件, 21 字节	yesno	1000
rows	3	list_mode	0	visible	1
1	1	0	8	0	ROOT/d/a	0	ROOT/d/a(1)	0
2	2	0	8	0	ROOT/d/a	2147483665	ROOT/d/in/long/a	255
3	3	0	5	0	ROOT/d/b	0	ROOT/d/b-副本	255
