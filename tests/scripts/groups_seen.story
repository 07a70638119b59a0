Groups one can see: the most to be freed comes first, a row tells of its group, and the marks of what they would free.
== files ==
d/a1 equal text of the first group
d/a2 equal text of the first group
d/b1 other
d/b2 other
d/b3 other
d/c1 the longest text of them all, which is alone with its copy
d/c2 the longest text of them all, which is alone with its copy
== script ==
select ROOT/d
call search_check_m_Click
mouse ListView1 double 2 4
call sort_by_freed
show ListView1
mouse ListView1 down 3 3
call group_of_row
show StatusBar1
call mark_total
show StatusBar1
== output ==
message	检查同内容文件完毕	已　检　查:7 个文件 \r\n相同文件有:4个,占用空间97 字节  用时: 0:0:...	ok	1000
rows	4	list_mode	0	visible	1
1	4	0	58	0	ROOT/d/c1	0	ROOT/d/c2	0
2	1	0	29	0	ROOT/d/a1	0	ROOT/d/a2	0
3	2	0	5	0	ROOT/d/b1	0	ROOT/d/b2	255
4	3	0	5	0	ROOT/d/b1	2147483665	ROOT/d/b3	0
1	文件数:7
2	字节:189
3	相同文件:4
4	相同文件长度:97
5	同组:3 份, 可释放 10 字节
6	0:...
7	选择要删除重复文件
1	文件数:7
2	字节:189
3	相同文件:4
4	相同文件长度:97
5	已标记:1 个文件, 5 字节
6	0:...
7	选择要删除重复文件
