Find goes from hit to hit; a filter shows some types only, the refresh the whole result; then the files without a twin.
== files ==
d/One.txt equal
d/two.TXT equal
d/three.jpg picture
d/four.jpg picture
d/alone.dat nobody
d/alone.md nobody else
== script ==
select ROOT/d
call search_check_m_Click
answer TWO
key ListView1 70 ctrl
show find_row
show find_text
key ListView1 114
answer *.jpg
call only_disp
show ListView1
show StatusBar1
call result_refresh
show ListView1
call Picture11_Click
show ListView1
== output ==
message	检查同内容文件完毕	已　检　查:6 个文件 \r\n相同文件有:2个,占用空间12 字节  用时: 0:0:...	ok	1000
input	输入框	要搜索的文件名\r\n
find_row	1
find_text	two
message	提示	已查到尾部	ok	1000
input	输入框	仅显示指定的文件类型, 如 *.jpg *.gif\r\n\r\n
rows	1	list_mode	0	visible	1
1	2	0	7	0	ROOT/d/four.jpg	0	ROOT/d/three.jpg	0
1	文件数:6
2	字节:41
3	相同文件:1
4	相同文件长度:19
5	仅显示*.jpg
6	0:0:...
7	...
rows	2	list_mode	0	visible	1
1	1	0	5	0	ROOT/d/One.txt	0	ROOT/d/two.TXT	0
2	2	0	7	0	ROOT/d/four.jpg	0	ROOT/d/three.jpg	0
rows	1	list_mode	2	visible	1
1	1	0	11	0	...	0	ROOT/d/alone.md	0
