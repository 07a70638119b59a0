The main road: a directory is selected, searched and compared, and its pairs stand in the list.
== files ==
data/photo/a.jpg the same picture
data/backup/a.jpg the same picture
data/backup/b.jpg the same picture
data/notes.txt unlike all others
data/empty1
data/empty2
== script ==
# The selection is confirmed as the window does it.
select ROOT/data
show selected_dir_count
call search_check_m_Click
show StatusBar1
show result_count
show ListView1
== output ==
selected_dir_count	1
message	检查同内容文件完毕	已　检　查:6 个文件 \r\n相同文件有:3个,占用空间32 字节  用时: 0:0:...	ok	1000
1	文件数:6
2	字节:65
3	相同文件:3
4	相同文件长度:32
5	
6	0:0:...
7	搜索和比对
result_count	3
rows	3	list_mode	0	visible	1
1	1	0	16	0	ROOT/data/backup/a.jpg	0	ROOT/data/backup/b.jpg	0
2	2	0	16	0	ROOT/data/backup/a.jpg	2147483665	ROOT/data/photo/a.jpg	0
3	3	0	0	0	ROOT/data/empty1	0	ROOT/data/empty2	0
== file 相同文件.txt ==
内容相同文件清单            
 3 
 0 
ROOT/data/empty1
ROOT/data/empty2
 16 
ROOT/data/backup/a.jpg
ROOT/data/backup/b.jpg
 16 
ROOT/data/backup/a.jpg
ROOT/data/photo/a.jpg
== file 不相同文件.txt ==
ROOT/data/empty1
ROOT/data/empty2
ROOT/data/notes.txt
== file 比较文件_目录清单.txt ==
ROOT/data
